# The read spine: a generator of a large deterministic ASI file and the
# benchmark of the read engine alone on it.
add_executable(spine_generate ${CMAKE_CURRENT_LIST_DIR}/spine_generate.cpp)
target_compile_options(spine_generate PRIVATE ${ORV_WARNINGS})

add_executable(spine_bench ${CMAKE_CURRENT_LIST_DIR}/spine_bench.cpp)
target_compile_options(spine_bench PRIVATE ${ORV_WARNINGS})
target_link_libraries(spine_bench PRIVATE pipeline hostapi core)
