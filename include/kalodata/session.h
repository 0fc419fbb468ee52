#ifndef KALODATA_SESSION_H
#define KALODATA_SESSION_H

#include <kalodata/types.h>

/*
 * The session: naming the working database file, renewing it from the shipped file, opening and closing it.
 *
 * A host calls, in this order: KaloSetFileName, KaloModelTableSelect (where it wants the indexer's tables),
 * KaloCopy, KaloOpen, anything else, KaloClose. KaloCopy and KaloRemove are for a closed session only.
 *
 * A database file says of itself how its last session ended: "Open" (it did not), "Close" (cleanly) or
 * "Error" (it left more or fewer tables than it found, as working tables of axes that were not deleted).
 */

/* Size of the caller's array for KaloGetMdbName. */
#define KALO_MDB_NAME_SIZE 30

KALO_BEGIN_DECLARATIONS

/*
 * Names the working database file. Both texts are copied; a null counts as empty.
 *
 * caller_module: file name of the module that calls (kept, not used).
 * file_name: full path of the working database file.
 */
KALO_API void KALO_CALL KaloSetFileName(const char* caller_module, const char* file_name);

/*
 * Chooses the base tables that the next KaloOpen copies. Without a call they are the standard ones.
 *
 * mode: 2 = the indexer's tables; 1, 3 and 4 = the standard tables.
 *
 * 0x2BFF06BA  any other mode; the choice stays as it was
 */
KALO_API KaloStatus KALO_CALL KaloModelTableSelect(uint16_t mode);

/*
 * Makes sure that there is a clean working file. A working file is kept when it is at most twice as large as
 * the shipped file, both are of one version, and its last session ended cleanly. Otherwise it is deleted and
 * made anew from the shipped file, which is looked for in the directory of the host program; when the shipped
 * file is missing, the working file is lost too.
 *
 * language: 1 = Japanese (IdeInfoJ.mdb), anything else = English (IdeInfo.mdb).
 *
 * 0x2BFF103D  the new copy cannot be opened
 * 0x2BFF103E  the new copy cannot be given its name and status
 * 0x2BFF103F  the new copy cannot be closed
 * other       the nonzero result of the system's file copy
 */
KALO_API KaloStatus KALO_CALL KaloCopy(uint16_t language);

/*
 * Opens the working file, marks it "Open", and makes the tables of the session: model, help, wizhelp and
 * MonitorID, copies of the base tables that KaloModelTableSelect chose, the last with monitor names in one
 * language.
 *
 * When the file itself could not be opened, functions answer as for a closed database until KaloClose; after
 * any later failure the database is open, with a part of the session's tables. Opening an open session
 * reopens the file and then fails with 0x2BFF06BD, because the first open's tables are still there; they
 * stay, KaloClose marks the file "Close", and the next KaloOpen fails in the same way: begin again with
 * KaloCopy after KaloRemove.
 *
 * country_id: language of the monitor names.
 *
 * 0x2B010000 + DAO  the file cannot be opened
 * 0x2C070000 + DAO  its tables cannot be counted
 * 0x2BFF06BE        the file is not open
 * 0x2BFF06BD        the copy into model failed
 * 0x2BFF06BF        the copy into help failed
 * 0x2BFF06BC        the copy into wizhelp failed
 * 0x2BFF06BB        the copy into MonitorID failed
 * 0x2C020000 + DAO  the monitor names cannot be put into the language
 */
KALO_API KaloStatus KALO_CALL KaloOpen(uint16_t country_id);

/*
 * Drops the session's tables, marks the file "Close", or "Error" when it holds more or fewer tables than
 * after the open, and closes it. Returns 0 when nothing is open.
 *
 * 0x2B020000 + DAO  the tables cannot be counted or the file cannot be closed
 */
KALO_API KaloStatus KALO_CALL KaloClose(void);

/*
 * The name of the shipped file that the open database was copied from.
 *
 * name: 30 characters; the name is cut to 29 and terminated.
 *
 * 0x2BFF0124  no open database
 * 0x2BFF0125  the file does not describe itself
 * 0x2BFF0126  it has no name
 * 0x2BFF0127  the database failed
 */
KALO_API KaloStatus KALO_CALL KaloGetMdbName(char* name);

/* Deletes the working file. Returns 0, also when it cannot be deleted. */
KALO_API KaloStatus KALO_CALL KaloRemove(void);

KALO_END_DECLARATIONS

#endif
