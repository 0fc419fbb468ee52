# The embedded engine: the system's SQLite, or the amalgamation (sqlite3.c, sqlite3.h) in the folder
# KALODATA_SQLITE_AMALGAMATION, where the target has none or another version is to be tested. A folder that does not
# exist is filled with the pinned version.
set(KALODATA_SQLITE_AMALGAMATION "" CACHE PATH "Folder of the SQLite amalgamation; empty: the system's SQLite")
if(KALODATA_SQLITE_AMALGAMATION)
    if(NOT EXISTS ${KALODATA_SQLITE_AMALGAMATION}/sqlite3.c)
        execute_process(COMMAND ${PROJECT_SOURCE_DIR}/scripts/fetch-sqlite.sh ${KALODATA_SQLITE_AMALGAMATION}
                        COMMAND_ERROR_IS_FATAL ANY)
    endif()
    add_library(kalodata_sqlite STATIC ${KALODATA_SQLITE_AMALGAMATION}/sqlite3.c)
    target_include_directories(kalodata_sqlite SYSTEM PUBLIC ${KALODATA_SQLITE_AMALGAMATION})
    target_compile_definitions(kalodata_sqlite PRIVATE
        SQLITE_ENABLE_COLUMN_METADATA SQLITE_THREADSAFE=1 SQLITE_OMIT_LOAD_EXTENSION)
    target_compile_options(kalodata_sqlite PRIVATE -w)
else()
    find_package(SQLite3 3.40 REQUIRED)
    add_library(kalodata_sqlite INTERFACE)
    target_link_libraries(kalodata_sqlite INTERFACE SQLite::SQLite3)
endif()
