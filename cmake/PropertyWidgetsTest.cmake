# pw_add_test(<name> SOURCES <files...> [LIBRARIES <targets...>] [DISPLAY_SERVER])
#
# Builds one QtTest executable and registers it with CTest. Every test runs on the offscreen
# platform with Qt Quick's software renderer, so no display or GPU is needed; under the
# sanitizer build the sanitizers stop the test at the first report. A test that needs what
# only a display server does, such as carrying out a drag, runs on the xcb platform under a
# virtual X server of its own (xvfb-run) with DISPLAY_SERVER.

# Qt warns when the runtime folder is missing or open to others, so tests get a private one.
set(PW_TEST_RUNTIME_DIR ${PROJECT_BINARY_DIR}/test-runtime)
file(MAKE_DIRECTORY ${PW_TEST_RUNTIME_DIR})
file(CHMOD ${PW_TEST_RUNTIME_DIR} PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)

function(pw_add_test name)
    cmake_parse_arguments(ARG "DISPLAY_SERVER" "" "SOURCES;LIBRARIES" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE pw_testsupport Qt5::Test ${ARG_LIBRARIES})
    target_precompile_headers(${name} REUSE_FROM pw_testsupport)
    set(platform offscreen)
    if(ARG_DISPLAY_SERVER)
        set(platform xcb)
        add_test(NAME ${name} COMMAND xvfb-run -a -s "-screen 0 1400x1000x24" $<TARGET_FILE:${name}>)
    else()
        add_test(NAME ${name} COMMAND ${name})
    endif()
    set(env
        QT_QPA_PLATFORM=${platform}
        # No OpenGL on the virtual X server: the widgets paint in software.
        QT_XCB_GL_INTEGRATION=none
        QT_QUICK_BACKEND=software
        LC_ALL=C.UTF-8
        XDG_RUNTIME_DIR=${PW_TEST_RUNTIME_DIR}
        SDK_AUTOMATIC_DIALOGS=1)
    if(PW_SANITIZE)
        list(APPEND env
            "ASAN_OPTIONS=detect_leaks=1:abort_on_error=1:strict_init_order=1:fast_unwind_on_malloc=0"
            "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/lsan.supp:print_suppressions=0"
            "UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1"
            # QtTest's own limit per test function follows the longer time of a test.
            QTEST_FUNCTION_TIMEOUT=1200000)
    endif()
    # The sanitizers unwind the stack at every allocation, Qt's included: the same test takes
    # twenty times as long.
    set(timeout 300)
    if(PW_SANITIZE)
        set(timeout 1200)
    endif()
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "${env}" TIMEOUT ${timeout})
endfunction()
