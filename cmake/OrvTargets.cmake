# Helpers shared by every target of the project.

function(orv_target_defaults target)
    target_compile_options(${target} PRIVATE -Wall -Wextra)
    target_compile_definitions(${target} PRIVATE QT_NO_KEYWORDS)
endfunction()

# Sources left out of the batches of the batched (unity) builds, each
# compiled on its own.
function(orv_compile_alone)
    set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()

# orv_library(NAME SOURCES... [DEPS ...])
function(orv_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPS" ${ARGN})
    add_library(orv_${name} STATIC ${ARG_SOURCES})
    target_include_directories(orv_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(orv_${name} PUBLIC ${ARG_DEPS})
    orv_target_defaults(orv_${name})
endfunction()

# orv_test(NAME SOURCES... DEPS ... [MAIN file]): one GoogleTest binary, run headless.
function(orv_test name)
    cmake_parse_arguments(ARG "" "MAIN" "SOURCES;DEPS" ${ARGN})
    if(NOT ARG_MAIN)
        set(ARG_MAIN ${PROJECT_SOURCE_DIR}/tests/test_main.cpp)
    endif()
    add_executable(${name} ${ARG_SOURCES} ${ARG_MAIN})
    target_link_libraries(${name} PRIVATE ${ARG_DEPS} GTest::gtest GTest::gmock)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    orv_target_defaults(${name})
    # The interface language and the order of font names follow the locale:
    # tests see the same one on every machine.
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST
        PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LANG=C.UTF-8;LC_ALL=C.UTF-8")
endfunction()

function(orv_collect_targets dir out)
    get_property(targets DIRECTORY ${dir} PROPERTY BUILDSYSTEM_TARGETS)
    get_property(subdirs DIRECTORY ${dir} PROPERTY SUBDIRECTORIES)
    foreach(sub ${subdirs})
        orv_collect_targets(${sub} more)
        list(APPEND targets ${more})
    endforeach()
    set(${out} ${targets} PARENT_SCOPE)
endfunction()

# The core libraries must run headless: only the user interface, the editor,
# their tests and the soak's editing session may reach QtWidgets, directly or
# through orv_ui.
function(orv_check_widgets_rule)
    set(allowed orv_ui orvantis test_ui orv_project_session)
    orv_collect_targets(${PROJECT_SOURCE_DIR} all)
    foreach(t ${all})
        get_target_property(type ${t} TYPE)
        if(type STREQUAL "UTILITY" OR type STREQUAL "INTERFACE_LIBRARY")
            continue()
        endif()
        get_target_property(links ${t} LINK_LIBRARIES)
        if(NOT links)
            continue()
        endif()
        foreach(l ${links})
            if(l MATCHES "^(Qt6::Widgets|Qt::Widgets|orv_ui)$")
                list(FIND allowed ${t} idx)
                if(idx EQUAL -1)
                    message(FATAL_ERROR "${t} links ${l}: only ${allowed} may use QtWidgets")
                endif()
            endif()
        endforeach()
    endforeach()
endfunction()
