# The seeded generator of the base Zobrist keys. The keys are committed in
# src/board/chiavi_zobrist.inc; a test checks that they are still exactly
# what the generator prints, and `genera_zobrist_aggiorna` rewrites them.
if(CMAKE_SCRIPT_MODE_FILE)
  # Run as a script by the test: compare the generator's output with the file.
  execute_process(COMMAND ${GENERATORE} OUTPUT_VARIABLE generato RESULT_VARIABLE esito)
  file(READ ${ATTESO} atteso)
  if(NOT esito EQUAL 0 OR NOT generato STREQUAL atteso)
    message(FATAL_ERROR "${ATTESO} differs from the output of genera_zobrist")
  endif()
  return()
endif()

add_executable(genera_zobrist ${CMAKE_CURRENT_LIST_DIR}/genera_zobrist.cpp)
# Only for the castlings' header, which includes nothing else of the board.
target_link_libraries(genera_zobrist PRIVATE pendrino_intestazioni)
add_custom_target(genera_zobrist_aggiorna
  COMMAND genera_zobrist ${PROJECT_SOURCE_DIR}/src/board/chiavi_zobrist.inc
  VERBATIM)
if(PENDRINO_TESTS AND NOT CMAKE_CROSSCOMPILING)
  add_test(NAME chiavi_zobrist_rigenerabili
    COMMAND ${CMAKE_COMMAND} -DGENERATORE=$<TARGET_FILE:genera_zobrist>
            -DATTESO=${PROJECT_SOURCE_DIR}/src/board/chiavi_zobrist.inc
            -P ${CMAKE_CURRENT_LIST_FILE})
endif()
