# Makes the table of findings from check/Explanations.txt, which documents its form. This happens when the build is
# configured, so that tools that read sources without a build find the table too.

set(zr_texts ${ZR_ROOM_DIR_check}/Explanations.txt)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${zr_texts})
file(READ ${zr_texts} zr_rest)
set(zr_paragraph "(([^\n]+\n)+)\n")
set(zr_entry "^\n\\[([a-z-]+)\\] (error|warning) ([^\n]+)\n${zr_paragraph}${zr_paragraph}(([ +-][^\n]*\n)+)")

function(zr_one_line paragraph out)
  string(STRIP "${paragraph}" text)
  string(REPLACE "\n" " " text "${text}")
  set(${out} "R\"~~(${text})~~\"" PARENT_SCOPE)
endfunction()

# Sets `out` to the sample whose own lines begin with `mark`; those that begin with `other` are of the other sample.
function(zr_sample diff mark other out)
  string(REGEX REPLACE "\n[${other}][^\n]*" "" lines "\n${diff}")
  string(REGEX REPLACE "\n[ ${mark}]" "\n" lines "${lines}")
  string(REPLACE "\\\n" "" lines "${lines}")
  string(SUBSTRING "${lines}" 1 -1 lines)
  set(${out} "R\"~~(${lines})~~\"" PARENT_SCOPE)
endfunction()

string(REGEX REPLACE "^(#[^\n]*\n)+" "" zr_rest "${zr_rest}")
while(NOT zr_rest STREQUAL "")
  if(NOT zr_rest MATCHES "${zr_entry}")
    string(SUBSTRING "${zr_rest}" 0 200 zr_rest)
    message(FATAL_ERROR "${zr_texts}: expected an entry at:${zr_rest}")
  endif()
  zr_one_line("${CMAKE_MATCH_4}" zr_meaning)
  zr_one_line("${CMAKE_MATCH_6}" zr_advice)
  zr_sample("${CMAKE_MATCH_8}" - + zr_bad)
  zr_sample("${CMAKE_MATCH_8}" + - zr_good)
  string(APPEND ZR_EXPLANATIONS "    {\"${CMAKE_MATCH_1}\", ${CMAKE_MATCH_2}, ${zr_meaning}, ${zr_advice}, "
      "\"${CMAKE_MATCH_3}\", ${zr_bad}, ${zr_good}},\n")
  string(LENGTH "${CMAKE_MATCH_0}" zr_length)
  string(SUBSTRING "${zr_rest}" ${zr_length} -1 zr_rest)
endwhile()
configure_file(${ZR_ROOM_DIR_check}/Explanations.cpp.in ${PROJECT_BINARY_DIR}/Explanations.cpp @ONLY)
target_sources(zr_room_check PRIVATE ${PROJECT_BINARY_DIR}/Explanations.cpp)
