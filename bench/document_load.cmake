# A whole file through the document path against the command pipeline
# (bench/document_load_bench.sh drives it on the generated 2-million-line scenario).
add_executable(document_load_bench ${CMAKE_CURRENT_LIST_DIR}/document_load_bench.cpp)
target_compile_options(document_load_bench PRIVATE ${ORV_WARNINGS})
target_link_libraries(document_load_bench PRIVATE asihost asi pipeline document refhost hostapi core)
set_target_properties(document_load_bench PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
