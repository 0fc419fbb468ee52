#include "dao/errors.h"

#include <sqlite3.h>

#include <array>

#include "jet/error.h"
#include "jetsql/functions.h"

namespace daoengine {
namespace {

struct NumberText {
    int number;
    const char* text;
};

constexpr std::array kTexts{
    NumberText{3001, "Invalid argument."},
    NumberText{3010, "The table already exists."},
    NumberText{3021, "No current record."},
    NumberText{3022, "The changes would create duplicate values in an index, primary key or relationship."},
    NumberText{3024, "Could not find the file."},
    NumberText{3026, "Not enough space on disk."},
    NumberText{3027, "Cannot update. The database or object is read-only."},
    NumberText{3035, "System resource exceeded."},
    NumberText{3043, "Disk or network error."},
    NumberText{3049, "Cannot open the database. It may be damaged."},
    NumberText{3051, "The engine cannot open or write the file."},
    NumberText{3058, "An index or primary key cannot contain a Null value."},
    NumberText{3065, "Cannot execute a select query."},
    NumberText{3075, "Syntax error in query expression."},
    NumberText{3078, "The engine cannot find the input table or query."},
    NumberText{3141,
               "The SELECT statement includes a reserved word or an argument that is misspelled or missing."},
    NumberText{3163, "The field is too small to accept the amount of data."},
    NumberText{3167, "The record is deleted."},
    NumberText{3211, "The engine could not lock the table because it is in use."},
    NumberText{3218, "Could not update; currently locked."},
    NumberText{3219, "Invalid operation."},
    NumberText{3265, "Item not found in this collection."},
    NumberText{3280, "Cannot delete a field that is part of an index."},
    NumberText{3314, "The field cannot contain a Null value."},
    NumberText{3343, "Unrecognized database format."},
    NumberText{3376, "The table does not exist."},
    NumberText{3420, "Object invalid or no longer set."},
    NumberText{3421, "Data type conversion error."},
};

int NumberOfConstraint(int extended) {
    switch (extended) {
        case SQLITE_CONSTRAINT_UNIQUE:
        case SQLITE_CONSTRAINT_PRIMARYKEY:
        case SQLITE_CONSTRAINT_ROWID:
            return 3022;
        case SQLITE_CONSTRAINT_NOTNULL:
            return 3314;
        default:
            return 3163;
    }
}

int NumberOf(int code, int extended, Work work) {
    switch (code) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return work == Work::Design ? 3211 : 3218;
        case SQLITE_NOMEM:
        case SQLITE_INTERRUPT:
            return 3035;
        case SQLITE_READONLY:
            return extended == SQLITE_READONLY_DIRECTORY ? 3051 : 3027;
        case SQLITE_IOERR:
            return extended == SQLITE_IOERR_NOMEM ? 3035 : 3043;
        case SQLITE_CORRUPT:
            return 3049;
        case SQLITE_NOTADB:
            return 3343;
        case SQLITE_FULL:
            return 3026;
        case SQLITE_CANTOPEN:
        case SQLITE_PERM:
        case SQLITE_AUTH:
            return 3051;
        case SQLITE_TOOBIG:
            return 3163;
        case SQLITE_CONSTRAINT:
            return NumberOfConstraint(extended);
        case SQLITE_MISMATCH:
            return 3421;
        default:
            return 3001;
    }
}

}  // namespace

std::string TextOf(int number) {
    for (const NumberText& entry : kTexts)
        if (entry.number == number) return entry.text;
    return {};
}

void Throw(int number) {
    throw jet::Error(number, TextOf(number));
}

void Throw(int number, const std::string& detail) {
    throw jet::Error(number, detail);
}

void ThrowEngineError(sqlite3* engine, int code, Work work) {
    if ((code & 0xFF) == SQLITE_ERROR)
        if (const auto raised = jetsql::ErrorFromMessage(sqlite3_errmsg(engine))) throw *raised;
    const int number = NumberOf(code & 0xFF, sqlite3_extended_errcode(engine), work);
    throw jet::Error(number, TextOf(number) + " (" + sqlite3_errmsg(engine) + ")");
}

}  // namespace daoengine
