# CPU time of the program while it waits 30 s for keys (target < 0.1 s).
# It drives the real program in a pseudo-terminal: POSIX only.
if(NOT WIN32)
  add_executable(pendrino_attesa ${CMAKE_CURRENT_LIST_DIR}/attesa.cpp)
  if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
    target_link_libraries(pendrino_attesa PRIVATE util)
  endif()
  if(COMMAND pendrino_bench)
    pendrino_bench(attesa
      COMMAND $<TARGET_FILE:pendrino_attesa> $<TARGET_FILE:pendrino> 30
      DEPENDS pendrino_attesa pendrino)
  else()
    add_custom_target(bench_attesa
      COMMAND $<TARGET_FILE:pendrino_attesa> $<TARGET_FILE:pendrino> 30
      USES_TERMINAL VERBATIM)
    add_dependencies(bench_attesa pendrino_attesa pendrino)
  endif()
endif()
