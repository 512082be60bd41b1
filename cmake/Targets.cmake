# What every target of the project shares: the warnings, the include root and the sanitizers.

set(VELMORIN_SANITIZERS "" CACHE STRING "Sanitizers to compile and link everything with, as -fsanitize takes them")

add_library(velmorin_options INTERFACE)
target_include_directories(velmorin_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(velmorin_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Wnon-virtual-dtor
    -Woverloaded-virtual -Wcast-qual -Wformat=2 -Wimplicit-fallthrough -Wundef
)
# g++ 12 sees overlapping copies in plain additions of strings where there are none (its bug 105651).
target_compile_options(velmorin_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
if(VELMORIN_SANITIZERS)
    target_compile_options(velmorin_options INTERFACE
        -fsanitize=${VELMORIN_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(velmorin_options INTERFACE -fsanitize=${VELMORIN_SANITIZERS})
    # Instrumented, g++ takes the unused cases of a variant for uninitialised reads; its manual warns of that.
    target_compile_options(velmorin_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
endif()

if(VELMORIN_CLANG_TIDY)
    # What is generated is not ours to mend; clang-tidy wants at least one check.
    file(WRITE ${PROJECT_BINARY_DIR}/.clang-tidy "Checks: '-*,bugprone-virtual-near-miss'\n")
endif()

# A library of one layer. HEADERS are checked to compile alone (target all_verify_interface_header_sets).
function(velmorin_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;HEADERS")
    add_library(${name} STATIC ${arg_SOURCES})
    target_sources(${name} PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${arg_HEADERS})
    target_link_libraries(${name} PUBLIC velmorin_options)
    set_target_properties(${name} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
    if(VELMORIN_CLANG_TIDY)
        set_target_properties(${name} PROPERTIES CXX_CLANG_TIDY "${VELMORIN_CLANG_TIDY}")
    endif()
endfunction()

option(VELMORIN_UNITED_TESTS "Compile several files of tests at once: all of them sooner, a changed one later" OFF)

# A test program, each of its cases a test of its own under LABEL.
function(velmorin_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "LABEL" "SOURCES;LIBRARIES")
    add_executable(${name} ${arg_SOURCES})
    # Optimising what runs for milliseconds takes most of the time that a build of all tests takes.
    target_compile_options(${name} PRIVATE $<$<CONFIG:Debug>:-O0 -g1>)
    # What the address sanitizer sees anyway would make up a third of that time in the tests' own code. The libraries keep
    # these checks.
    if(VELMORIN_SANITIZERS MATCHES undefined)
        target_compile_options(${name} PRIVATE -fno-sanitize=null,alignment,vptr,object-size)
    endif()
    target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} GTest::gmock GTest::gtest_main)
    set_target_properties(${name} PROPERTIES UNITY_BUILD ${VELMORIN_UNITED_TESTS} UNITY_BUILD_BATCH_SIZE 8)
    # A constant of one file and a variable of another have nothing to do with each other.
    set_target_properties(${name} PROPERTIES
        UNITY_BUILD_CODE_BEFORE_INCLUDE "#pragma GCC diagnostic ignored \"-Wshadow\"")
    include(GoogleTest)
    gtest_discover_tests(${name} NO_PRETTY_VALUES
        PROPERTIES LABELS ${arg_LABEL} TIMEOUT 300 DISCOVERY_TIMEOUT 60)
endfunction()

# A test program that needs a desktop: the whole of it runs once under each of the window managers, on a screen of SIZE.
function(velmorin_desktop_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "SIZE" "SOURCES;LIBRARIES;MANAGERS")
    if(NOT arg_SIZE)
        set(arg_SIZE 1280x800)
    endif()
    add_executable(${name} ${arg_SOURCES})
    target_compile_options(${name} PRIVATE $<$<CONFIG:Debug>:-O0 -g1>)
    target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} GTest::gmock GTest::gtest_main)
    foreach(manager IN LISTS arg_MANAGERS)
        add_test(NAME ${name}-${manager} COMMAND ${Python3_EXECUTABLE}
            ${PROJECT_SOURCE_DIR}/tests/desktop/desktop.py --wm ${manager} --size ${arg_SIZE} -- $<TARGET_FILE:${name}>)
        set_tests_properties(${name}-${manager} PROPERTIES LABELS desktop TIMEOUT 300)
    endforeach()
endfunction()

# A library that is a QML module at the same time: its C++ types, the files named QML, or both. Its QML is compiled ahead of
# time and lies in the program itself. RESOURCES are files that the module finds beside its QML.
function(velmorin_qml_module name uri)
    cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "SOURCES;HEADERS;QML;SINGLETONS;RESOURCES")
    foreach(file IN LISTS arg_SINGLETONS)
        set_source_files_properties(${file} PROPERTIES QT_QML_SINGLETON_TYPE TRUE)
    endforeach()
    set(CMAKE_AUTOMOC ON)
    qt_add_qml_module(${name} STATIC
        URI ${uri}
        VERSION 1.0
        RESOURCE_PREFIX /qt/qml
        DEPENDENCIES QtQuick
        SOURCES ${arg_SOURCES} ${arg_HEADERS}
        QML_FILES ${arg_QML} ${arg_SINGLETONS}
        RESOURCES ${arg_RESOURCES}
    )
    # What the toolkit generates from our QML is not ours to warn about, and it is compiled in one go: most of the time
    # would go into reading the same headers once for each file.
    get_target_property(sources ${name} SOURCES)
    list(FILTER sources INCLUDE REGEX "/\\.rcc/qmlcache/")
    set_source_files_properties(${sources} PROPERTIES UNITY_GROUP qml)
    set(pragmas "")
    foreach(warning IN ITEMS shadow conversion sign-conversion old-style-cast unused-parameter unused-variable)
        string(APPEND pragmas "#pragma GCC diagnostic ignored \"-W${warning}\"\n")
    endforeach()
    set_target_properties(${name} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP
        UNITY_BUILD_CODE_BEFORE_INCLUDE "${pragmas}")
    target_sources(${name} PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${arg_HEADERS})
    target_link_libraries(${name} PUBLIC velmorin_options Qt6::Quick)
    # What registers the types includes their headers by name alone.
    target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
    set_target_properties(${name} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
    if(VELMORIN_CLANG_TIDY)
        set_target_properties(${name} PROPERTIES CXX_CLANG_TIDY "${VELMORIN_CLANG_TIDY}")
    endif()
endfunction()
