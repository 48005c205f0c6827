# SGP4 alone: propagation rate for a near-earth and a deep-space set, and the
# script that times satellite.js on the same sets for comparison.
add_executable(sgp4_bench ${CMAKE_CURRENT_LIST_DIR}/sgp4_bench.cpp)
target_compile_options(sgp4_bench PRIVATE ${ORV_WARNINGS})
target_link_libraries(sgp4_bench PRIVATE sgp4)
