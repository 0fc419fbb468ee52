#ifndef KALODATA_HELP_H
#define KALODATA_HELP_H

#include <kalodata/types.h>

/*
 * Help references for the host's screens, by amplifier model, and the display texts of the reference pulse
 * choices, by language.
 */

#pragma pack(push, 1)

/*
 * The choices of the reference pulse lists: 68 and 36 bytes. A text is copied whole: the database keeps it
 * within its array; a longer one runs on into the next element, and ends with the last element at the latest.
 */
typedef struct KaloRefPulseString {
    uint32_t pulse_id;
    char pulse_string[64];
} KaloRefPulseString;

typedef struct KaloRefLogicString {
    uint32_t logic_id;
    char logic_string[32];
} KaloRefLogicString;

typedef struct KaloRefMultiString {
    uint32_t multi_id;
    char multi_string[32];
} KaloRefMultiString;

#pragma pack(pop)

KALO_BEGIN_DECLARATIONS

/* --- Help references
 * --------------------------------------------------------------------------------------------- */

/*
 * Each of these finds the page of a screen for the amplifier model that the axis is registered with. A model
 * without a page of its own gets the page for every model. `help` has 128 bytes; the reference is cut to 127
 * and terminated. A page without a reference leaves `help` as it was and is no failure; so does every
 * failure.
 */

/* Autotuning. 0x2BFF012C not open; 0x2BFF071A unknown axis, or no page; 0x2BFF012D (axis), 0x2BFF012E (page)
 * the engine failed. */
KALO_API KaloStatus KALO_CALL KaloGetAutotuningHelp(int16_t axis_num, char* help);

/* Inertia identification, by item. 0x2BFF012F not open; 0x2BFF071B unknown axis; 0x2BFF071C no page;
 * 0x2BFF0130 (axis), 0x2BFF0131 (page) the engine failed. */
KALO_API KaloStatus KALO_CALL KaloGetInertiaHelp(int16_t axis_num, int32_t item_id, char* help);

/* NCT. 0x2BFF0132 not open; 0x2BFF071D unknown axis; 0x2BFF071E no page; 0x2BFF0133 (axis), 0x2BFF0134 (page)
 * the engine failed. */
KALO_API KaloStatus KALO_CALL KaloGetNctHelp(int16_t axis_num, char* help);

/* Common screens, by item. With 65535 as the axis the page for every model, without any axis. 0x2BFF0135 not
 * open; 0x2BFF071F unknown axis; 0x2BFF0721 no page; 0x2BFF0136 (axis), 0x2BFF0137 (page) the engine failed.
 */
KALO_API KaloStatus KALO_CALL KaloGetCommonHelp(uint16_t axis_num, int32_t item_id, char* help);

/* Mechanical analysis. 0x2BFF0138 not open; 0x2BFF0722 unknown axis; 0x2BFF0724 no page; 0x2BFF0139 (axis),
 * 0x2BFF013A (page) the engine failed. */
KALO_API KaloStatus KALO_CALL KaloGetMechanaHelp(int16_t axis_num, char* help);

/* Gain tuning, by item. Only a page of the model's own: there is no page for every model here. 0x2BFF013B not
 * open; 0x2BFF0725 unknown axis; 0x2BFF0148 no page; 0x2BFF013C (axis), 0x2BFF013D (page) the engine failed.
 */
KALO_API KaloStatus KALO_CALL KaloGetGaintuningHelp(int16_t axis_num, uint16_t item_id, char* help);

/* Guidelines, by kind of screen and item. 0x2BFF180B not open; 0x2BFF1808 unknown axis; 0x2BFF180F no page;
 * 0x2BFF1809 (axis), 0x2BFF180C (page) the engine failed. */
KALO_API KaloStatus KALO_CALL KaloGetGuidelineHelp(int16_t axis_num, uint32_t help_id, int32_t item_id,
                                                   char* help);

/* --- Reference pulse choices
 * ------------------------------------------------------------------------------------- */

/*
 * Three lists for one language: pulse form, pulse logic and multi setting. Count, provide an array of that
 * many elements, list. Rows with an id above 65534 belong to no list. Elements stand in the order of the
 * rows; at most as many are written as the count is, and none from the 32769th on. When an id or a text is
 * missing, the elements before stay filled, and with a missing text its own id too. All of these leave the
 * library's lock when the engine failed.
 */

/* Not open 0x2BFF0480; none 0x2BFF0481 with a count of 0; the engine failed 0x2BFF0482. */
KALO_API KaloStatus KALO_CALL KaloGetRefPulseStringNum(uint16_t country_id, uint16_t* count);

/* Not open 0x2BFF0483; none 0x2BFF0484; an id missing 0x2BFF0485, a text 0x2BFF0486; the engine failed
 * 0x2BFF0487. */
KALO_API KaloStatus KALO_CALL KaloGetRefPulseString(uint16_t country_id, KaloRefPulseString* strings);

/* Not open 0x2BFF048A; none 0x2BFF048B with a count of 0; the engine failed 0x2BFF048C. */
KALO_API KaloStatus KALO_CALL KaloGetRefLogicStringNum(uint16_t country_id, uint16_t* count);

/* Not open 0x2BFF048D; none 0x2BFF048E; an id missing 0x2BFF048F, a text 0x2BFF0490; the engine failed
 * 0x2BFF0491. */
KALO_API KaloStatus KALO_CALL KaloGetRefLogicString(uint16_t country_id, KaloRefLogicString* strings);

/* Not open 0x2BFF0495; none 0x2BFF0496 with a count of 0; the engine failed 0x2BFF0497. */
KALO_API KaloStatus KALO_CALL KaloGetRefMultiStringNum(uint16_t country_id, uint16_t* count);

/* Not open 0x2BFF0498; none 0x2BFF0499; an id missing 0x2BFF049A, a text 0x2BFF049B; the engine failed
 * 0x2BFF049C. */
KALO_API KaloStatus KALO_CALL KaloGetRefMultiString(uint16_t country_id, KaloRefMultiString* strings);

KALO_END_DECLARATIONS

#endif
