# Writes a C++ file with the page that every report begins from: see PageParts.h.
#
#     cmake -D FOLDER=page -D OUTPUT=PageParts.cpp -P EmbedPage.cmake

file(READ "${FOLDER}/page.html" page)
file(READ "${FOLDER}/style.css" style)
file(READ "${FOLDER}/script.js" script)
string(REPLACE "/* STYLE */\n" "${style}" page "${page}")
string(REPLACE "/* SCRIPT */\n" "${script}" page "${page}")

set(source "// Made by EmbedPage.cmake.\n#include \"report/html/PageParts.h\"\n\n")
string(APPEND source "namespace ostrel::report {\n\n")

# Appends the definition of a part to `source`.
function(add_part name content)
    string(FIND "${content}" ")page\"" end_of_literal)
    if(NOT end_of_literal EQUAL -1)
        message(FATAL_ERROR "the page contains )page\", which would end its literal")
    endif()
    string(APPEND source "const char* const ${name} = R\"page(${content})page\";\n\n")
    set(source "${source}" PARENT_SCOPE)
endfunction()

foreach(mark LETTERS LEGEND FILES INDEX)
    set(text "<!-- ${mark} -->\n")
    if(mark STREQUAL "LETTERS")
        set(text "/* LETTERS */\n") # in the style sheet
    endif()
    string(FIND "${page}" "${text}" at)
    if(at EQUAL -1)
        message(FATAL_ERROR "the page has no ${text}")
    endif()
    string(SUBSTRING "${page}" 0 ${at} part)
    add_part(PAGE_UNTIL_${mark} "${part}")
    string(LENGTH "${text}" length)
    math(EXPR at "${at} + ${length}")
    string(SUBSTRING "${page}" ${at} -1 page)
endforeach()
add_part(PAGE_REST "${page}")

string(APPEND source "} // namespace ostrel::report\n")
file(WRITE "${OUTPUT}" "${source}")
