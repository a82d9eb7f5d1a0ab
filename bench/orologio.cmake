# The clock running for 2 minutes down to zero, through an alarm and the last
# seconds' beeps: the program's CPU time (target < 1 %) and how late each
# shown second appears (target p99 <= 5 ms). It drives the real program in a
# pseudo-terminal and reads the screen through libvterm.
if(NOT WIN32)
  find_package(PkgConfig REQUIRED)
  pkg_check_modules(PENDRINO_VTERM REQUIRED IMPORTED_TARGET vterm)
  add_executable(pendrino_orologio ${CMAKE_CURRENT_LIST_DIR}/orologio_bench.cpp)
  target_link_libraries(pendrino_orologio PRIVATE PkgConfig::PENDRINO_VTERM)
  if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
    target_link_libraries(pendrino_orologio PRIVATE util)
  endif()
  if(COMMAND pendrino_bench)
    pendrino_bench(orologio
      COMMAND $<TARGET_FILE:pendrino_orologio> $<TARGET_FILE:pendrino>
      DEPENDS pendrino_orologio pendrino)
  else()
    add_custom_target(bench_orologio
      COMMAND $<TARGET_FILE:pendrino_orologio> $<TARGET_FILE:pendrino>
      USES_TERMINAL VERBATIM)
    add_dependencies(bench_orologio pendrino_orologio pendrino)
  endif()
endif()
