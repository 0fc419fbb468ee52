#ifndef KALODATA_IO_H
#define KALODATA_IO_H

#include <kalodata/types.h>

/*
 * Input and output signals of an axis. Parameter words allocate signals to terminals: each of a word's four
 * hexadecimal digits chooses, by its value, the signal on one terminal. KaloMonCreate builds the axis's I/O
 * table, which says what each value stands for. Option units have further signals whose allocation is fixed.
 *
 * io_code and inout: 1 = inputs, 2 = outputs.
 * Unless a function says otherwise, nothing is written to the caller's memory when it fails.
 */

#pragma pack(push, 1)

/*
 * One signal on its terminal, 44 bytes. Names are copied whole: the database keeps them at 19 bytes or fewer;
 * a longer one runs into what follows, also into the next record, and ends with the last record at the
 * latest.
 */
typedef struct KaloIoSignal {
    char logical_name[20];   /* of the signal */
    char physical_name[20];  /* of the terminal */
    uint16_t positive_logic; /* 1 = active high */
    uint16_t reverse;        /* 1 = polarity reversed */
} KaloIoSignal;

#pragma pack(pop)

KALO_BEGIN_DECLARATIONS

/*
 * Number of parameters that allocate signals of a direction. For inputs the selection parameter counts too.
 * 0x2A00002C not open; 0x2A00002E unknown axis; 0x2A00002F no I/O table; 0x2BC10000 + DAO in the look-up,
 * 0x2BC20000 + DAO in counting.
 */
KALO_API KaloStatus KALO_CALL KaloGetIONum(int16_t axis_num, int16_t io_code, uint16_t* count);

/*
 * Address of the parameter at a 0-based index, ascending.
 * 0x2A00002C, 0x2A00002E, 0x2A00002F, 0x2BC10000 + DAO as KaloGetIONum; 0x2BC30000 no parameter; 0x2BC40000
 * the address is NULL; 0x2BC50000 + DAO, among others for an index past the last parameter.
 */
KALO_API KaloStatus KALO_CALL KaloGetIOAddress(int16_t axis_num, int16_t io_code, int16_t index,
                                               int32_t* address);

/*
 * The signals that the four digits of a parameter allocate, lowest digit first.
 *
 *   address      of the parameter
 *
 *   value_word   its word in the drive
 *
 *   select_word  the word of the selection parameter (KaloGetIOSelectAddress); any without one
 *
 *   input_mode   receives 0, or for inputs the mode that the selection parameter chooses instead of
 *                allocation by parameter: all four records are then zero
 *
 *   signals      four records; a digit whose value allocates nothing gives a record of zeros
 *
 * An output's `reverse` comes from the selection parameter's settings and stays as the caller passed it where
 * none of them has the signal's reverse address; a digit without a setting counts as reverse address 0, not
 * reversed. With another io_code only `input_mode` is written.
 *
 * 0x2A00002C not open; 0x2BC70000 unknown axis; 0x2A00002F no I/O table; 0x2A00007A the input mode is NULL;
 * 0x2BC80000 + DAO in the look-up, 0x2BCA0000 input selection, 0x2BCB0000 input allocation, 0x2BCC0000 output
 * selection, 0x2BCD0000 output allocation (each + DAO; records before it are filled). With 0x2A00007A and the
 * errors in reading `input_mode` has been written.
 */
KALO_API KaloStatus KALO_CALL KaloGetIOInfo(int16_t axis_num, int16_t io_code, int32_t address,
                                            int32_t value_word, int32_t select_word, uint16_t* input_mode,
                                            KaloIoSignal* signals);

/*
 * Address of the selection parameter of a direction, -1 without one.
 * 0x2A00002C not open; 0x2BC70000 unknown axis; 0x2A00002F no I/O table; 0x2A00007C the address is NULL;
 * 0x2BCF0000 + DAO in the look-up, 0x2BD00000 + DAO in reading.
 */
KALO_API KaloStatus KALO_CALL KaloGetIOSelectAddress(int16_t axis_num, int16_t io_code, int32_t* address);

/*
 * The seven fixed signals of a drive of the PELK series for one selector value; needs no axis.
 * 0x2A00002C not open; 0x2A00007B no such selector; 0x2BCE0000 + DAO, among others for a selector with fewer
 * than seven signals (the records before it are filled).
 */
KALO_API KaloStatus KALO_CALL KaloGetPELKIOInfo(int16_t pelkvalue, KaloIoSignal* signals);

/*
 * Number of signals that the database holds for a selector, 0 for an unknown one; 16 bits with the sign
 * extended. 0x2A00002C not open; 0x2BCE0000 + DAO.
 */
KALO_API KaloStatus KALO_CALL KaloGetPELKIOInfoNum(int16_t pelkvalue, uint32_t* count);

/*
 * Number of user parameters that allocate the axis's inputs, and their ids in table order; the array has room
 * for as many as the count says (KaloUparaCreate builds the table they are read from). Count: 0x2BFF0420 not
 * open; 0x2BFF0421 unknown axis; 0x2BFF0422 no parameter table; 0x2BFF0423 a DAO error in the look-up;
 * 0x2BFF0425 in counting; 0x2BFF0424 none (the count is written as 0). List: 0x2BFF0430 not open; 0x2BFF0431
 * unknown axis; 0x2BFF0432 no parameter table; 0x2BFF0433 a DAO error; 0x2BFF0434 none; 0x2BFF0435 a
 * parameter without id. In the last case, and after an error on the way, the ids before it are written.
 */
KALO_API KaloStatus KALO_CALL KaloGetInputSignalPrmIDNum(int16_t axis_num, uint16_t* count);
KALO_API KaloStatus KALO_CALL KaloGetInputSignalPrmID(int16_t axis_num, int32_t* ids);

/*
 * The same for the outputs.
 * Count: 0x2BFF0440 not open; 0x2BFF0441 unknown axis; 0x2BFF0442 no parameter table; 0x2BFF0443 a DAO error
 * in the look-up; 0x2BFF0445 in counting; 0x2BFF0444 none (the count is written as 0). List: 0x2BFF0447 not
 * open; 0x2BFF0448 unknown axis; 0x2BFF0449 no parameter table; 0x2BFF044A a DAO error; 0x2BFF044B none;
 * 0x2BFF044C a parameter without id.
 */
KALO_API KaloStatus KALO_CALL KaloGetOutputSignalPrmIDNum(int16_t axis_num, uint16_t* count);
KALO_API KaloStatus KALO_CALL KaloGetOutputSignalPrmID(int16_t axis_num, int32_t* ids);

/*
 * Number of fixed signals of a direction, 0 for none. The table behind it is made within the call for the
 * axis's registered model and option unit, its firmware and its custom specification, and is gone after it,
 * so that calls for fixed signals must not overlap. 0x2BFF085D unknown axis; 0x2BFF085E not open, or a DAO
 * error in the look-up; 0x2BFF085F the base rows could not be copied; 0x2BFF0861 to 0x2BFF0863 a firmware
 * change and 0x2BFF08B0 to 0x2BFF08B2 a change of the custom specification failed (modify, insert, delete);
 * 0x2BFF0864 a DAO error in counting; 0x2BFF0865 the table could not be dropped (the number is written).
 */
KALO_API KaloStatus KALO_CALL KaloGetFixedIONum(int16_t axis_num, int32_t inout, uint16_t* count);

/*
 * Those signals by bit position; the array has room for as many as KaloGetFixedIONum says. A missing value
 * leaves the caller's field as it was. 0x2BFF085D to 0x2BFF0863, 0x2BFF08B0 to 0x2BFF08B2 as there;
 * 0x2BFF0866 no signal; 0x2BFF0867 a DAO error in reading (the records before it are filled); 0x2BFF0868 the
 * table could not be dropped.
 */
KALO_API KaloStatus KALO_CALL KaloGetFixedIOInfo(int16_t axis_num, int32_t inout, KaloIoSignal* signals);

KALO_END_DECLARATIONS

#endif
