# What every target of the house shares: language level, warnings, sanitizers, ccache, precompiled
# headers, and the bundle that the programs are written into.

set(CMAKE_CXX_STANDARD 23)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 17)
set(CMAKE_LINK_DEPENDS_NO_SHARED ON)

set(WENDLOW_BUNDLE ${CMAKE_BINARY_DIR}/Wendlow.app)

find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # The sloppiness is what ccache asks for with precompiled headers; the base directory lets two
    # work trees share their results.
    foreach(language C CXX)
        set(CMAKE_${language}_COMPILER_LAUNCHER
            ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1
            CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
            ${CCACHE})
    endforeach()
endif()

find_package(fmt REQUIRED)
find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
find_package(GTest REQUIRED)

find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Qml Quick QuickTemplates2 DBus Concurrent Network Svg Test)
if(WENDLOW_PACKAGE)
    # Two packages of one commit are equal only if the QML compiler writes the same twice.
    get_target_property(compiler Qt6::qmlcachegen LOCATION)
    configure_file(${CMAKE_CURRENT_LIST_DIR}/qmlcachegen.py.in ${CMAKE_BINARY_DIR}/qmlcachegen @ONLY
        FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
    get_target_property(configurations Qt6::qmlcachegen IMPORTED_CONFIGURATIONS)
    foreach(configuration ${configurations})
        set_target_properties(Qt6::qmlcachegen PROPERTIES
            IMPORTED_LOCATION_${configuration} ${CMAKE_BINARY_DIR}/qmlcachegen)
    endforeach()
endif()
find_package(QCoro6 REQUIRED COMPONENTS Core DBus Network)
# QCoro's package file forgets the compiler flag that GCC needs for coroutines in C++20 mode and
# later has on by itself, so nothing is to be switched on here.

# Warnings are errors everywhere. The second set would drown in what Qt's code generators write.
function(wendlow_warnings target)
    cmake_parse_arguments(arg "GENERATED" "" "" ${ARGN})
    target_compile_options(${target} PRIVATE
        $<$<COMPILE_LANGUAGE:CXX>:-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
        -Woverloaded-virtual -Werror>
        $<$<COMPILE_LANGUAGE:C>:-Wall -Wextra -Wpedantic -Wshadow -Werror>)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # GCC 12 sees overlaps and overflows in std::string's own concatenation where there are none.
        target_compile_options(${target} PRIVATE
            $<$<COMPILE_LANGUAGE:CXX>:-Wno-restrict -Wno-stringop-overflow -Wno-array-bounds>)
    endif()
    if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        # A precompiled header that ccache hands back is older than headers that were installed since.
        target_compile_options(${target} PRIVATE "SHELL:-Xclang -fno-pch-timestamp")
        # GCC 12's own std::stable_sort calls a function that the same library deprecates, and clang
        # blames whoever sorts. What we deprecate or call ourselves is seen by GCC in the dev build.
        target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-Wno-deprecated-declarations>)
    endif()
    if(NOT arg_GENERATED)
        target_compile_options(${target} PRIVATE
            $<$<COMPILE_LANGUAGE:CXX>:-Wconversion -Wsign-conversion -Wold-style-cast>)
    endif()
    get_target_property(type ${target} TYPE)
    if(WENDLOW_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=address,undefined
            -fno-sanitize-recover=all -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=address,undefined)
        if(type STREQUAL "EXECUTABLE")
            target_sources(${target} PRIVATE ${WENDLOW_CMAKE}/Sanitizers/Leaks.cpp)
        endif()
    endif()
    if(WENDLOW_SANITIZE_THREADS)
        target_compile_options(${target} PRIVATE -fsanitize=thread -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=thread)
        if(type STREQUAL "EXECUTABLE")
            target_sources(${target} PRIVATE ${WENDLOW_CMAKE}/Sanitizers/Races.cpp)
        endif()
    endif()
    if(WENDLOW_JOINED)
        wendlow_joined(${target})
    endif()
endfunction()

# What is compiled with a sanitizer is compiled in joined units: a header's cost is then paid once for
# a folder and not once for a file. Which sources can stand in one unit is looked up in their texts at
# every configuring, so that none has to be listed here.
set(WENDLOW_CMAKE ${CMAKE_CURRENT_LIST_DIR})
find_package(Python3 REQUIRED COMPONENTS Interpreter)

function(wendlow_joined target)
    get_target_property(sources ${target} SOURCES)
    list(FILTER sources INCLUDE REGEX "\\.cpp$")
    set(own "")
    foreach(source ${sources})
        cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} NORMALIZE)
        get_source_file_property(single ${source} SKIP_UNITY_BUILD_INCLUSION)
        get_source_file_property(options ${source} COMPILE_OPTIONS)
        # A file of another folder may be in two targets of this one, in different company.
        cmake_path(IS_PREFIX CMAKE_CURRENT_SOURCE_DIR ${source} own_folder)
        if(own_folder AND NOT single AND NOT options)
            list(APPEND own ${source})
        endif()
    endforeach()
    if(NOT own)
        return()
    endif()
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${WENDLOW_CMAKE}/join.py)
    execute_process(COMMAND ${Python3_EXECUTABLE} ${WENDLOW_CMAKE}/join.py ${own}
        OUTPUT_VARIABLE groups OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    string(REPLACE ";" "," groups "${groups}")
    string(REPLACE "\n" ";" groups "${groups}")
    set(number 0)
    foreach(group ${groups})
        string(REPLACE "," ";" group "${group}")
        set_source_files_properties(${group} PROPERTIES UNITY_GROUP joined${number})
        math(EXPR number "${number} + 1")
    endforeach()
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
    # What a precompiled header would have brought along is read as text.
    get_target_property(reused ${target} PRECOMPILE_HEADERS_REUSE_FROM)
    set(headers "")
    if(reused STREQUAL "wendlow_pch")
        set(headers ${WENDLOW_PCH_HEADERS})
    elseif(reused)
        set(headers ${WENDLOW_QT_PCH_HEADERS})
    endif()
    list(TRANSFORM headers REPLACE "[<>]" "")
    list(TRANSFORM headers PREPEND "SHELL:-include ")
    target_compile_options(${target} PRIVATE ${headers})
endfunction()

# Headers that nearly every file reads, compiled once for all targets of a kind: those without Qt, those
# on Qt, and those with QML, among which is what the QML compiler's own output reads.
set(WENDLOW_PCH_HEADERS
    <algorithm> <array> <chrono> <cstdint> <expected> <filesystem> <functional> <map> <memory>
    <optional> <set> <span> <string> <string_view> <utility> <variant> <vector> <fmt/format.h>)
set(WENDLOW_QT_PCH_HEADERS <QObject> <QString> <QVariant> <algorithm> <functional> <memory> <optional>
    <string> <string_view> <vector>)
set(WENDLOW_QML_PCH_HEADERS ${WENDLOW_QT_PCH_HEADERS} <QQmlEngine> <QQuickItem> <QtQml/qqmlprivate.h>)
set(WENDLOW_QT_DEFINITIONS QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS)

file(WRITE ${CMAKE_BINARY_DIR}/pch/none.cpp "")
function(wendlow_precompiled name headers library)
    add_library(${name} STATIC ${CMAKE_BINARY_DIR}/pch/none.cpp)
    target_link_libraries(${name} PUBLIC fmt::fmt ${library})
    target_precompile_headers(${name} PRIVATE ${${headers}})
    if(library)
        target_compile_definitions(${name} PRIVATE ${WENDLOW_QT_DEFINITIONS})
    endif()
    wendlow_warnings(${name} GENERATED)
endfunction()
wendlow_precompiled(wendlow_pch WENDLOW_PCH_HEADERS "")
wendlow_precompiled(wendlow_qt_pch WENDLOW_QT_PCH_HEADERS Qt6::Core)
wendlow_precompiled(wendlow_qml_pch WENDLOW_QML_PCH_HEADERS Qt6::Quick)

function(wendlow_precompiled_qt target)
    target_link_libraries(${target} PRIVATE fmt::fmt)
    target_compile_definitions(${target} PRIVATE ${WENDLOW_QT_DEFINITIONS})
    target_precompile_headers(${target} REUSE_FROM wendlow_qt_pch)
endfunction()

# For the code that Qt itself writes around a QML module, compiled with that code's own flags.
add_library(wendlow_glue_pch STATIC ${CMAKE_BINARY_DIR}/pch/none.cpp)
set_target_properties(wendlow_glue_pch PROPERTIES DISABLE_PRECOMPILE_HEADERS OFF)
target_link_libraries(wendlow_glue_pch PUBLIC Qt6::Quick)
target_compile_definitions(wendlow_glue_pch PRIVATE
    ${WENDLOW_QT_DEFINITIONS} QT_PLUGIN QT_STATICPLUGIN QT_DEPRECATED_WARNINGS)
target_precompile_headers(wendlow_glue_pch PRIVATE <QtQml/qqml.h> <QtQml/qqmlextensionplugin.h>
    <QtQml/qqmlprivate.h> <QtPlugin>)

# All that is shipped, and what drives it; the unit tests are no part of it.
add_custom_target(product)

# What the fuzzers link tells them where it has been.
function(wendlow_fuzzed target)
    if(WENDLOW_FUZZ)
        target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
    endif()
endfunction()

# For what runs by the clock or over much data, so that watching each access costs more than compiling
# for it. A module made of templates takes twice as long to compile like this.
function(wendlow_optimised target)
    if(WENDLOW_SANITIZE)
        target_compile_options(${target} PRIVATE -O1)
    endif()
endfunction()

# A module without Qt: a static library whose public include directory is its own folder, so that a
# header is found only by those that link the module.
function(wendlow_pure_module name)
    cmake_parse_arguments(arg "" "" "SOURCES;LINK;PRIVATE_LINK" ${ARGN})
    add_library(${name} STATIC ${arg_SOURCES})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC fmt::fmt ${arg_LINK} PRIVATE ${arg_PRIVATE_LINK})
    target_precompile_headers(${name} REUSE_FROM wendlow_pch)
    wendlow_warnings(${name})
    add_dependencies(product ${name})
endfunction()

# A module on Qt without a window: the same, with moc.
function(wendlow_qt_module name)
    cmake_parse_arguments(arg "" "" "SOURCES;LINK;PRIVATE_LINK" ${ARGN})
    add_library(${name} STATIC ${arg_SOURCES})
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC fmt::fmt Qt6::Core ${arg_LINK} PRIVATE ${arg_PRIVATE_LINK})
    target_precompile_headers(${name} REUSE_FROM wendlow_qt_pch)
    target_compile_definitions(${name} PUBLIC ${WENDLOW_QT_DEFINITIONS})
    wendlow_warnings(${name} GENERATED)
    add_dependencies(product ${name})
endfunction()

# A module with QML: C++ models and QML files under one URI, the module's own name. Linked into the
# program as a static plugin (see Q_IMPORT_QML_PLUGIN in the program that uses it).
function(wendlow_qml_module name)
    cmake_parse_arguments(arg "" "" "SOURCES;QML_FILES;RESOURCES;LINK;PRIVATE_LINK;IMPORTS" ${ARGN})
    # Instrumented, the QML files are read as they stand: what the QML compiler writes of them is no
    # code of ours, and costs more than all that is. The programs that are built plain contain it.
    set(cache "")
    if(WENDLOW_JOINED)
        set(cache NO_CACHEGEN)
    endif()
    qt_add_qml_module(${name}
        STATIC
        ${cache}
        URI ${name}
        VERSION 1.0
        RESOURCE_PREFIX /qt/qml
        SOURCES ${arg_SOURCES}
        QML_FILES ${arg_QML_FILES}
        RESOURCES ${arg_RESOURCES}
        IMPORTS ${arg_IMPORTS}
        IMPORT_PATH ${CMAKE_BINARY_DIR}/Sources)
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC fmt::fmt Qt6::Quick ${arg_LINK} PRIVATE ${arg_PRIVATE_LINK})
    target_precompile_headers(${name} REUSE_FROM wendlow_qml_pch)
    target_compile_definitions(${name} PUBLIC ${WENDLOW_QT_DEFINITIONS})
    wendlow_warnings(${name} GENERATED)
    add_dependencies(product ${name})
    # What Qt writes around a module is a line or two below many headers; it is not instrumented.
    foreach(written ${name}plugin ${name}plugin_init)
        set_target_properties(${written} PROPERTIES DISABLE_PRECOMPILE_HEADERS OFF)
        target_precompile_headers(${written} REUSE_FROM wendlow_glue_pch)
    endforeach()
    if(TARGET ${name}_qmlcache)
        target_precompile_headers(${name}_qmlcache REUSE_FROM wendlow_qml_pch)
    endif()
    if(WENDLOW_JOINED)
        string(TOLOWER ${name} lower)
        set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/${lower}_qmltyperegistrations.cpp
            PROPERTIES UNITY_GROUP joined0)
    endif()
    # What the QML compiler writes shadows its own parameters, and is little text below many headers.
    get_target_property(sources ${name} SOURCES)
    list(FILTER sources INCLUDE REGEX "/qmlcache/")
    if(sources)
        set_source_files_properties(${sources} PROPERTIES UNITY_GROUP qmlcache)
        set_target_properties(${name} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP
            UNITY_BUILD_CODE_BEFORE_INCLUDE "#pragma GCC diagnostic ignored \"-Wshadow\"")
    endif()
endfunction()

# A program of the product, written into the bundle.
function(wendlow_program name)
    cmake_parse_arguments(arg "QT" "" "SOURCES;LINK" ${ARGN})
    add_executable(${name} ${arg_SOURCES})
    set_target_properties(${name} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${WENDLOW_BUNDLE}/Contents/MacOS)
    target_link_libraries(${name} PRIVATE fmt::fmt ${arg_LINK})
    add_dependencies(product ${name})
    if(arg_QT)
        set_target_properties(${name} PROPERTIES AUTOMOC ON)
        wendlow_precompiled_qt(${name})
        wendlow_warnings(${name} GENERATED)
    else()
        target_precompile_headers(${name} REUSE_FROM wendlow_pch)
        wendlow_warnings(${name})
    endif()
endfunction()

# One test program for one module. With QT the program's main has a QCoreApplication; with PROGRAMS it
# drives the programs as they are shipped, and is built and run with them.
function(wendlow_test name)
    cmake_parse_arguments(arg "QT;PROGRAMS" "TIMEOUT" "SOURCES;LINK;ENVIRONMENT" ${ARGN})
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 120)
    endif()
    # A guard against what hangs, not a measure: the sweeps of faults take minutes where every access is watched.
    if(WENDLOW_SANITIZE OR WENDLOW_SANITIZE_THREADS)
        math(EXPR arg_TIMEOUT "4 * ${arg_TIMEOUT}")
    endif()
    add_executable(${name} ${arg_SOURCES})
    target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/Tests/Support)
    if(arg_QT)
        set_target_properties(${name} PROPERTIES AUTOMOC ON)
        target_sources(${name} PRIVATE ${CMAKE_SOURCE_DIR}/Tests/Support/QtMain.cpp)
        target_link_libraries(${name} PRIVATE GTest::gtest GTest::gmock Qt6::Test ${arg_LINK})
        wendlow_precompiled_qt(${name})
        wendlow_warnings(${name} GENERATED)
    else()
        target_link_libraries(${name} PRIVATE GTest::gmock_main ${arg_LINK})
        target_precompile_headers(${name} REUSE_FROM wendlow_pch)
        wendlow_warnings(${name} GENERATED)
    endif()
    set(labels units)
    if(arg_PROGRAMS)
        set(labels programs)
        add_dependencies(product ${name})
    endif()
    include(GoogleTest)
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
        PROPERTIES TIMEOUT ${arg_TIMEOUT} LABELS ${labels} ENVIRONMENT "${arg_ENVIRONMENT}")
    if(NOT arg_PROGRAMS)
        wendlow_zones(${name} ${arg_SOURCES})
    endif()
endfunction()

# A test program that speaks of dates runs once more, whole, at other ends of the world: nine hours
# ahead of Greenwich, without summer time, and three and a half behind it, with.
function(wendlow_zones name)
    foreach(source ${ARGN})
        cmake_path(ABSOLUTE_PATH source)
        file(STRINGS ${source} spoken LIMIT_COUNT 1
            REGEX "QDate|QTimeZone|DateWords|DayFormat|year_month_day|EditorDate|localtime")
        if(spoken)
            foreach(zone Asia/Tokyo America/St_Johns)
                add_test(NAME ${name}.in.${zone} COMMAND ${name} --gtest_brief=1)
                set_tests_properties(${name}.in.${zone} PROPERTIES
                    TIMEOUT 300 LABELS zones ENVIRONMENT "TZ=${zone};${arg_ENVIRONMENT}")
            endforeach()
            return()
        endif()
    endforeach()
endfunction()
