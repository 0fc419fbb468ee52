# The embedded engine: Debian's SQLite, or the amalgamation in KALODATA_SQLITE_AMALGAMATION (a folder with
# sqlite3.c and sqlite3.h) where the system has none for the target.
set(KALODATA_SQLITE_AMALGAMATION "" CACHE PATH "Folder of the SQLite amalgamation; empty: the system's SQLite")
if(KALODATA_SQLITE_AMALGAMATION)
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
