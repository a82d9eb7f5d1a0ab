# The soak run of the game record: 10,000 random games through the typed-move
# road with the position self-check after every make and unmake. A short run
# of the same code is a test of the diagnostics (tests/diagnostics); the game
# player is the shared support's (tests/comune/supporto/rodaggio.h).
add_executable(pendrino_rodaggio ${CMAKE_CURRENT_LIST_DIR}/rodaggio_main.cpp)
target_link_libraries(pendrino_rodaggio PRIVATE pendrino_supporto)
set_target_properties(pendrino_rodaggio PROPERTIES PENDRINO_BACKEND pendrino_memoria)
if(COMMAND pendrino_bench)
  pendrino_bench(rodaggio COMMAND $<TARGET_FILE:pendrino_rodaggio> 10000
    DEPENDS pendrino_rodaggio)
else()
  add_custom_target(bench_rodaggio COMMAND $<TARGET_FILE:pendrino_rodaggio> 10000
    USES_TERMINAL VERBATIM)
  add_dependencies(bench_rodaggio pendrino_rodaggio)
endif()
