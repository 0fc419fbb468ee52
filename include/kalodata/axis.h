#ifndef KALODATA_AXIS_H
#define KALODATA_AXIS_H

#include <kalodata/types.h>

/*
 * The registry of axes: what is fitted on each axis and which working tables it has.
 *
 * An axis's row comes to exist when a builder (KaloUparaCreate and its kin) registers its first table; after
 * that KaloModelInfoCreate fills in the axis's identity. A host therefore calls, per axis: a builder,
 * KaloModelInfoCreate, the other builders, the getters; and KaloDeleteAxisTable when the axis goes.
 */

KALO_BEGIN_DECLARATIONS

/*
 * Writes the identity of an axis into its row and resolves its encoder.
 *
 * For an axis without a row this runs a statement that the database engine refuses: it returns 0x2B8B0D12,
 * nothing is written, and the calling thread keeps the library's lock. The row keeps the model id as it is
 * given here: hosts pass the id of the model's variant if getters that read it (help, fixed I/O, switches and
 * others) are to answer for the variant.
 *
 * servo_id, servo_firmware, servo_custom_spec: the amplifier; custom specification 0 or KALO_NONE = standard
 * product. power_rating: kept as given. option_id, option_firmware, option_custom_spec: the option unit;
 * KALO_NO_OPTION = none. motor_id, encoder_id, encoder_firmware: the motor and its encoder; encoder firmware
 * KALO_NONE = none. An encoder that the database does not know gets ability 0 and type "*".
 *
 * 0x2A000072        no open database
 * 0x2BFF0805        the rows of the axis cannot be counted
 * 0x2B870000 + DAO  counting the axis's rows failed
 * 0x2B890000 + DAO  updating the axis's row failed
 * 0x2B8A0000 + DAO  identifying the model's variant failed
 * 0x2B8B0000 + DAO  inserting a row failed (always, with DAO error 3346)
 * 0x2B8C0000 + DAO  copying the encoders or applying their firmware's changes failed
 * 0x2B990000 + DAO  reading the encoder failed
 * 0x2B9A0000 + DAO  dropping the temporary encoder table failed
 * 0x2B9B0000 + DAO  writing the encoder's properties failed
 */
KALO_API KaloStatus KALO_CALL KaloModelInfoCreate(int32_t servo_id, int32_t servo_firmware,
                                                  int32_t servo_custom_spec, int32_t power_rating,
                                                  int32_t option_id, int32_t option_firmware,
                                                  int32_t option_custom_spec, int32_t motor_id,
                                                  int32_t encoder_id, int32_t encoder_firmware,
                                                  int16_t axis_num);

/*
 * Drops every working table of an axis that no other axis uses, then deletes the axis's row. Returns 0 for an
 * axis without a row and when no database is open. What was dropped before a failure stays dropped, and the
 * row stays.
 *
 * 0x2C040000 + DAO  looking at the axis's tables or dropping one failed (the lock is left)
 * 0x2C050000 + DAO  deleting the row failed
 */
KALO_API KaloStatus KALO_CALL KaloDeleteAxisTable(int16_t axis_num);

KALO_END_DECLARATIONS

#endif
