# The generator of large projects, shared by the benchmarks and the tests
# (which check what it writes); included by both, defined once.
include_guard(GLOBAL)
add_library(orv_project_generator STATIC "${CMAKE_CURRENT_LIST_DIR}/ProjectGenerator.cpp")
target_link_libraries(orv_project_generator PUBLIC orvmedialib)
target_include_directories(orv_project_generator PUBLIC "${CMAKE_CURRENT_LIST_DIR}")
target_compile_options(orv_project_generator PRIVATE ${ORVMEDIALIB_WARNINGS})
