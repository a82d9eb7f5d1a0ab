# Perft speed beside Stockfish's, and the perft suite rows too slow for the tests.
add_executable(perft_bench ${CMAKE_CURRENT_LIST_DIR}/perft_bench.cpp)
# Only engine code is linked in, as for pendrino-perft.
target_link_libraries(perft_bench PRIVATE pendrino_core)

# Debian installs Stockfish outside the usual PATH.
find_program(PENDRINO_STOCKFISH stockfish PATHS /usr/games)
if(PENDRINO_STOCKFISH)
  set(perft_stockfish ${PENDRINO_STOCKFISH})
else()
  set(perft_stockfish "")
endif()

if(DEFINED PENDRINO_DATI_CONDIVISI)
  set(perft_riferimento ${PENDRINO_DATI_CONDIVISI}/perft-reference.tsv)
else()
  set(perft_riferimento ${CMAKE_SOURCE_DIR}/../shared/data/perft-reference.tsv)
endif()

if(COMMAND pendrino_bench)
  pendrino_bench(perft COMMAND perft_bench "${perft_stockfish}" DEPENDS perft_bench)
  pendrino_bench(perft_suite COMMAND pendrino-perft --suite ${perft_riferimento}
    DEPENDS pendrino-perft)
  pendrino_bench(perft_suite_extra
    COMMAND pendrino-perft --suite ${CMAKE_SOURCE_DIR}/tests/diagnostics/dati/perft-extra.tsv
    DEPENDS pendrino-perft)
else()
  add_custom_target(bench_perft
    COMMAND perft_bench "${perft_stockfish}"
    COMMAND pendrino-perft --suite ${perft_riferimento}
    USES_TERMINAL VERBATIM)
endif()
