# Writes the registers of status codes as a C++ table: cmake -DOUTPUT=… -DREGISTERS=… -P status_table.cmake
set(rows "")
foreach(register IN LISTS REGISTERS)
    # Lists split at semicolons, and brackets keep a list's elements together: both are stood for by other signs.
    file(READ ${register} text)
    string(REPLACE "\\" "\\\\" text "${text}")
    string(REPLACE "\"" "\\\"" text "${text}")
    string(REPLACE ";" "\\x3B" text "${text}")
    string(REPLACE "\n" ";" lines "${text}")
    foreach(line IN LISTS lines)
        if(line MATCHES "^(0x[0-9A-Fa-f]+)\t(code|dao)\t([^\t]*)\t(.*)$")
            set(case "${CMAKE_MATCH_4}")
            # A digit behind the sign would be read as part of it.
            string(REPLACE "\\x3B" "\" \"\\x3B\" \"" case "${case}")
            set(with_dao false)
            if(CMAKE_MATCH_2 STREQUAL "dao")
                set(with_dao true)
            endif()
            string(APPEND rows "    {${CMAKE_MATCH_1}U, ${with_dao}, \"${CMAKE_MATCH_3}\", \"${case}\"},\n")
        elseif(NOT line STREQUAL "" AND NOT line MATCHES "^#" AND NOT line MATCHES "^code\t")
            message(FATAL_ERROR "${register}: not a row of the register: ${line}")
        endif()
    endforeach()
endforeach()
set(text "#include \"status_words.h\"\n\nnamespace cli {\nnamespace {\n
const StatusEntry kEntries[] = {\n${rows}};\n
}  // namespace\n
std::span<const StatusEntry> StatusRegister() {\n    return kEntries;\n}\n
}  // namespace cli\n")
file(WRITE ${OUTPUT}.new "${text}")
file(COPY_FILE ${OUTPUT}.new ${OUTPUT} ONLY_IF_DIFFERENT)
file(REMOVE ${OUTPUT}.new)
file(TOUCH_NOCREATE ${OUTPUT})
