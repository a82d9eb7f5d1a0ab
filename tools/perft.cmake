# pendrino-perft: exact move counts from the command line, and the CTest
# checks that run it on the published counts.
add_executable(pendrino-perft ${CMAKE_CURRENT_LIST_DIR}/pendrino_perft.cpp)
# The counts need no screen, no keys and no speaker: no platform backend.
target_link_libraries(pendrino-perft PRIVATE pendrino_diagnostics pendrino_conteggio)

if(PENDRINO_TESTS)
  if(DEFINED PENDRINO_DATI_CONDIVISI)
    set(perft_riferimento ${PENDRINO_DATI_CONDIVISI}/perft-reference.tsv)
  else()
    set(perft_riferimento ${CMAKE_SOURCE_DIR}/../shared/data/perft-reference.tsv)
  endif()
  set(perft_dati ${CMAKE_SOURCE_DIR}/tests/diagnostics/dati)

  # Rows expecting more leaves than this run in `make bench` instead.
  if(CMAKE_BUILD_TYPE STREQUAL "Debug" OR PENDRINO_SANITIZE)
    set(perft_nodi_default 2000000)
  else()
    set(perft_nodi_default 20000000)
  endif()
  set(PENDRINO_PERFT_NODI_TEST ${perft_nodi_default} CACHE STRING
    "Largest expected leaf count of a perft suite row run by the tests")

  # Runs the program and checks its exit status, and what it writes to
  # standard output and standard error against regular expressions. Arguments
  # are separated by '|' so that a FEN keeps its blanks.
  set(perft_verifica ${CMAKE_CURRENT_BINARY_DIR}/verifica_perft.cmake)
  file(WRITE ${perft_verifica} [=[
string(REPLACE "|" ";" argomenti "${ARGOMENTI}")
execute_process(COMMAND ${EMULATORE} ${PROGRAMMA} ${argomenti}
  RESULT_VARIABLE esito OUTPUT_VARIABLE uscita ERROR_VARIABLE errore)
message("exit status ${esito}\n--- stdout\n${uscita}--- stderr\n${errore}")
if(NOT esito STREQUAL "${ESITO}")
  message(FATAL_ERROR "exit status ${esito}, expected ${ESITO}")
endif()
if(NOT uscita MATCHES "${USCITA}")
  message(FATAL_ERROR "stdout does not match: ${USCITA}")
endif()
if(NOT errore MATCHES "${ERRORE}")
  message(FATAL_ERROR "stderr does not match: ${ERRORE}")
endif()
]=])
  function(pendrino_test_perft nome esito argomenti uscita errore)
    add_test(NAME perft_${nome} COMMAND ${CMAKE_COMMAND}
      "-DEMULATORE=${CMAKE_CROSSCOMPILING_EMULATOR}" "-DPROGRAMMA=$<TARGET_FILE:pendrino-perft>"
      "-DARGOMENTI=${argomenti}" "-DESITO=${esito}" "-DUSCITA=${uscita}" "-DERRORE=${errore}"
      -P ${perft_verifica})
  endfunction()

  set(promozione "8/1P6/8/r7/8/8/1k6/4K3 w - - 0 1")
  set(suite_passata "(^|\n)[1-9][0-9]* passed, 0 failed\r?\n$")
  pendrino_test_perft(suite_riferimento 0
    "--suite|${perft_riferimento}|--max-nodes|${PENDRINO_PERFT_NODI_TEST}" "${suite_passata}" "^$")
  pendrino_test_perft(suite_extra 0
    "--suite|${perft_dati}/perft-extra.tsv|--max-nodes|${PENDRINO_PERFT_NODI_TEST}"
    "${suite_passata}" "^$")
  pendrino_test_perft(conta 0 "${promozione}|3" "^1686\r?\n$" "^$")
  pendrino_test_perft(profondita_zero 0 "${promozione}|0" "^1\r?\n$" "^$")
  set(divide_promozione
    "^b7b8q: 7\r?\nb7b8r: 7\r?\nb7b8b: 22\r?\nb7b8n: 22\r?\n.*e1d1: 20\r?\n.*\r?\nNodes searched: 163\r?\n$")
  pendrino_test_perft(divide 0 "--divide|${promozione}|2" "${divide_promozione}" "^$")
  pendrino_test_perft(divide_arrocchi 0
    "r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1|1|--divide" "e1g1: 1\r?\n.*e1c1: 1\r?\n.*Nodes searched: 26\r?\n$" "^$")
  # The make and unmake walk, and the counter's table and threads.
  pendrino_test_perft(conta_fai_ritira 0 "--fai-ritira|${promozione}|3" "^1686\r?\n$" "^$")
  pendrino_test_perft(divide_fai_ritira 0 "--divide|--fai-ritira|${promozione}|2"
    "${divide_promozione}" "^$")
  # Each walk lists the root moves in its own order: the game's generator
  # takes en passant before the other pawn captures, the counter after them.
  set(enpassant_e_cattura "7k/8/2n5/3Pp3/8/8/8/K7 w - e6 0 1")
  pendrino_test_perft(divide_ordine_fai_ritira 0 "--fai-ritira|--divide|${enpassant_e_cattura}|1"
    "^d5d6: 1\r?\nd5e6: 1\r?\nd5c6: 1\r?\n" "^$")
  pendrino_test_perft(divide_ordine_contatore 0 "--divide|${enpassant_e_cattura}|1"
    "^d5d6: 1\r?\nd5c6: 1\r?\nd5e6: 1\r?\n" "^$")
  pendrino_test_perft(conta_hash_thread 0 "--hash|1|--thread|3|${promozione}|4" "^28118\r?\n$" "^$")
  pendrino_test_perft(divide_hash_thread 0 "--divide|--thread|2|--hash|1|${promozione}|3"
    "^b7b8q: 173\r?\nb7b8r: 124\r?\n.*\r?\nNodes searched: 1686\r?\n$" "^$")
  pendrino_test_perft(suite_fai_ritira 0
    "--suite|${perft_dati}/perft-extra.tsv|--max-nodes|100000|--fai-ritira" "${suite_passata}" "^$")
  pendrino_test_perft(suite_hash_thread 0
    "--suite|${perft_riferimento}|--max-nodes|${PENDRINO_PERFT_NODI_TEST}|--hash|16|--thread|2"
    "${suite_passata}" "^$")
  pendrino_test_perft(hash_zero 2 "--hash|0|${promozione}|1" "^$" "usage")
  pendrino_test_perft(hash_troppo 2 "--hash|65537|${promozione}|1" "^$" "usage")
  pendrino_test_perft(hash_non_numero 2 "--hash|molti|${promozione}|1" "^$" "usage")
  pendrino_test_perft(thread_zero 2 "--thread|0|${promozione}|1" "^$" "usage")
  pendrino_test_perft(thread_troppi 2 "--thread|65|${promozione}|1" "^$" "usage")
  pendrino_test_perft(fai_ritira_con_hash 2 "--fai-ritira|--hash|1|${promozione}|1" "^$" "usage")
  pendrino_test_perft(fai_ritira_con_thread 2 "--thread|2|--fai-ritira|${promozione}|1" "^$" "usage")
  pendrino_test_perft(fen_rifiutata 2 "8/8/8 w|1" "^$" "rejected by the loader")
  pendrino_test_perft(fen_vuota 2 " |1" "^$" "rejected by the loader")
  pendrino_test_perft(senza_re_nero 2 "8/8/8/8/8/8/8/K7 w - - 0 1|1" "^$"
    "Black must have exactly one king")
  pendrino_test_perft(due_re_bianchi 2 "K6K/8/8/8/8/8/8/k7 w - - 0 1|1" "^$"
    "White must have exactly one king")
  pendrino_test_perft(arrocco_senza_torre 2 "4k3/8/8/8/8/8/8/4K2R w KQkq - 0 1|1" "^$"
    "castling right Q without the white king on e1 and a white rook on a1")
  pendrino_test_perft(arrocco_senza_re 2 "r3k2r/8/8/8/8/8/8/R2K3R w K - 0 1|1" "^$"
    "castling right K without")
  pendrino_test_perft(arrocco_nero_senza_torre 2 "4k2r/8/8/8/8/8/8/4K3 b q - 0 1|1" "^$"
    "castling right q without")
  pendrino_test_perft(pedone_in_prima_traversa 2 "4k3/8/8/8/8/8/8/P3K3 w - - 0 1|1" "^$"
    "first or the last rank")
  pendrino_test_perft(troppi_cavalli 2 "NNNNNNNN/NN6/8/8/3P4/8/8/k1K5 w - - 0 1|1" "^$"
    "White has too many knights and pawns")
  pendrino_test_perft(profondita_non_valida 2 "${promozione}|x" "^$" "depth must be")
  pendrino_test_perft(profondita_troppo_grande 2 "${promozione}|21" "^$" "depth must be")
  pendrino_test_perft(senza_argomenti 2 "" "^$" "usage")
  pendrino_test_perft(opzione_sconosciuta 2 "--fast|${promozione}|1" "^$" "usage")
  pendrino_test_perft(suite_mancante 2 "--suite|${perft_dati}/non-esiste.tsv" "^$" "cannot read")
  pendrino_test_perft(suite_con_errori 1 "--suite|${perft_dati}/perft-errato.tsv|--max-nodes|1000"
    "FAIL sbagliata depth 2: expected 401, counted 400\r?\nFAIL line 4: .*\r?\nFAIL senza_re depth 1: Black must have exactly one king\r?\nFAIL rifiutata depth 1: the FEN is rejected by the loader\r?\n1 skipped \\(more than 1000 nodes\\)\r?\n1 passed, 4 failed\r?\n$"
    "^$")
endif()
