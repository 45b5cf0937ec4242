# asistente_feria_sim_fixture(<name> [DATA <dir>])
#
# Defines the CTest fixture <name>: the test <name>.start runs feria-sim --port 0 on a fresh copy
# of the data directory (the demo data when DATA is not given) and waits until it listens; the
# test <name>.stop stops it with SIGTERM. The marketplace's URL ("http://127.0.0.1:N") is written
# to the file whose path the function leaves in <name>_URL_FILE in the caller's scope; a test
# learns that path from the environment or from a compile definition:
#
#   asistente_feria_sim_fixture(feriaDemo)
#   asistente_add_test(foo_test LABEL integration SOURCES ... FIXTURES feriaDemo
#       ENVIRONMENT ASISTENTE_TEST_MARKETPLACE_URL_FILE=${feriaDemo_URL_FILE})
#   # or: target_compile_definitions(foo_test PRIVATE URL_FILE="${feriaDemo_URL_FILE}")
#
# Calling it again with the same name, from any folder, reuses the one fixture; its server is
# shared by every test that requires it, so such tests must not count on a pristine state.
function(asistente_feria_sim_fixture name)
    cmake_parse_arguments(ARG "" "DATA" "" ${ARGN})
    if(NOT ARG_DATA)
        set(ARG_DATA ${PROJECT_SOURCE_DIR}/sim/data/demo)
    endif()
    set(dir ${PROJECT_BINARY_DIR}/fixtures/${name})
    set(${name}_URL_FILE ${dir}/url PARENT_SCOPE)

    get_property(defined GLOBAL PROPERTY ASISTENTE_FERIA_SIM_FIXTURES)
    if(name IN_LIST defined)
        return()
    endif()
    set_property(GLOBAL APPEND PROPERTY ASISTENTE_FERIA_SIM_FIXTURES ${name})

    set(script ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/feria-sim-fixture.sh)
    add_test(NAME ${name}.start
        COMMAND ${script} start $<TARGET_FILE:feria-sim> ${ARG_DATA} ${dir})
    add_test(NAME ${name}.stop COMMAND ${script} stop ${dir})
    set_tests_properties(${name}.start PROPERTIES
        FIXTURES_SETUP ${name} LABELS integration ENVIRONMENT "${ASISTENTE_TEST_ENV}")
    set_tests_properties(${name}.stop PROPERTIES FIXTURES_CLEANUP ${name} LABELS integration)
endfunction()
