# libFuzzer target over the TLE and Kepler readers, with the SGP4 model and
# the two-body propagation behind them.
add_executable(satellites_fuzz ${CMAKE_CURRENT_LIST_DIR}/satellites_fuzz.cpp)
target_link_libraries(satellites_fuzz PRIVATE importers sgp4 core)
target_link_options(satellites_fuzz PRIVATE -fsanitize=fuzzer)
