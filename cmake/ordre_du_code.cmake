# The layout list of the program's code still names its functions, run as
# the test "ordre_du_code":
#   cmake -DPROGRAMME=<build>/velorin -DLISTE=<source dir>/cmake/ordre_du_code.txt -P ordre_du_code.cmake
# A function renamed or removed since the list was made leaves its line
# without effect, and the exports then map more of the program into memory;
# the test fails when more than one line in ten has no function left.
cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND nm --defined-only ${PROGRAMME} OUTPUT_VARIABLE symboles RESULT_VARIABLE code)
if(NOT code EQUAL 0)
  message(FATAL_ERROR "ordre_du_code.cmake : nm n'a pas pu lire « ${PROGRAMME} »")
endif()
file(STRINGS ${LISTE} sections)
list(LENGTH sections total)
set(perdues 0)
foreach(section IN LISTS sections)
  string(REGEX REPLACE "^\\.text\\.((unlikely|startup|hot|exit)\\.)?" "" nom "${section}")
  string(FIND "${symboles}" " ${nom}\n" position)
  if(position EQUAL -1)
    math(EXPR perdues "${perdues} + 1")
  endif()
endforeach()
math(EXPR limite "${total} / 10")
if(total EQUAL 0 OR perdues GREATER limite)
  message(FATAL_ERROR "« ${LISTE} » ne nomme plus ${perdues} fonctions du programme sur ${total} : "
                      "la refaire par scripts/ordre_du_code.sh ${PROGRAMME}")
endif()
message(STATUS "${perdues} lignes sans fonction sur ${total}")
