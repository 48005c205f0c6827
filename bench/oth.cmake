# OTH Gold messages: a generator of a large deterministic file of position
# reports and the parse (and, where built, load) of it, with peak RSS.
add_executable(oth_bench ${CMAKE_CURRENT_LIST_DIR}/oth_bench.cpp)
target_compile_options(oth_bench PRIVATE ${ORV_WARNINGS})
target_link_libraries(oth_bench PRIVATE importers)
