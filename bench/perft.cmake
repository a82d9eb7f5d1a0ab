# Perft speed beside Stockfish's (whole processes of pendrino-perft and of
# stockfish), and the perft suite rows too slow for the tests, by the counter
# and by the make and unmake walk.
add_executable(perft_bench ${CMAKE_CURRENT_LIST_DIR}/perft_bench.cpp)

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

set(perft_extra ${CMAKE_SOURCE_DIR}/tests/diagnostics/dati/perft-extra.tsv)
if(COMMAND pendrino_bench)
  pendrino_bench(perft COMMAND perft_bench $<TARGET_FILE:pendrino-perft> "${perft_stockfish}"
    DEPENDS perft_bench pendrino-perft)
  # Every row at its full depth, by each walk: the two agree wherever both
  # give the published count.
  pendrino_bench(perft_suite COMMAND pendrino-perft --suite ${perft_riferimento}
    DEPENDS pendrino-perft)
  pendrino_bench(perft_suite_fai_ritira COMMAND pendrino-perft --suite ${perft_riferimento} --fai-ritira
    DEPENDS pendrino-perft)
  pendrino_bench(perft_suite_extra COMMAND pendrino-perft --suite ${perft_extra}
    DEPENDS pendrino-perft)
  pendrino_bench(perft_suite_extra_fai_ritira
    COMMAND pendrino-perft --suite ${perft_extra} --fai-ritira
    DEPENDS pendrino-perft)
else()
  add_custom_target(bench_perft
    COMMAND perft_bench $<TARGET_FILE:pendrino-perft> "${perft_stockfish}"
    COMMAND pendrino-perft --suite ${perft_riferimento}
    COMMAND pendrino-perft --suite ${perft_riferimento} --fai-ritira
    USES_TERMINAL VERBATIM)
  add_dependencies(bench_perft perft_bench pendrino-perft)
endif()
