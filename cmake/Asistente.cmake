# Project-wide compiler settings and the helpers every folder's CMakeLists uses.

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
    # Precompiled headers change the command line in ways ccache must be told to tolerate;
    # paths relative to the checkout, and a debug build not hashed by its directory, let every
    # clone of the tree (CI's among them) share one cache.
    set(_launcher ${CMAKE_COMMAND} -E env
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
        CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1
        ${CCACHE_PROGRAM})
    set(CMAKE_C_COMPILER_LAUNCHER ${_launcher})
    set(CMAKE_CXX_COMPILER_LAUNCHER ${_launcher})
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wno-unused-parameter)
if(ASISTENTE_WERROR)
    add_compile_options(-Werror)
endif()
if(ASISTENTE_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-omit-frame-pointer
                        -fno-sanitize-recover=undefined)
    add_link_options(-fsanitize=address,undefined)
endif()

# asistente_add_library(<name> SOURCES ... [PUBLIC_DEPENDS ...] [DEPENDS ...] [QT_PCH])
# A static library asistente_<name> with the alias asistente::<name>;
# headers are included by their path under src/, as "platform/xml/XmlDocument.h".
# So every library sees all of src/; the test "layering" (tests/layering) is what keeps each
# include pointing down the ASISTENTE_SOURCE_DIRS list.
function(asistente_add_library name)
    cmake_parse_arguments(ARG "QT_PCH" "" "SOURCES;PUBLIC_DEPENDS;DEPENDS" ${ARGN})
    add_library(asistente_${name} STATIC ${ARG_SOURCES})
    add_library(asistente::${name} ALIAS asistente_${name})
    target_include_directories(asistente_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(asistente_${name} PUBLIC ${ARG_PUBLIC_DEPENDS} PRIVATE ${ARG_DEPENDS})
    if(ARG_QT_PCH)
        # Widgets code: moc for its signals, and the shared precompiled Qt headers.
        set_target_properties(asistente_${name} PROPERTIES AUTOMOC ON)
        asistente_use_qt_pch(asistente_${name})
    endif()
endfunction()

# One shared set of precompiled Qt headers for every target that uses Qt Widgets.
function(asistente_use_qt_pch target)
    if(NOT TARGET asistente_qt_pch)
        file(WRITE ${PROJECT_BINARY_DIR}/qt_pch.cpp "")
        add_library(asistente_qt_pch STATIC ${PROJECT_BINARY_DIR}/qt_pch.cpp)
        target_link_libraries(asistente_qt_pch PUBLIC Qt6::Widgets)
        target_precompile_headers(asistente_qt_pch PUBLIC
            <QtWidgets/QtWidgets> <QtCore/QtCore> <string> <vector> <memory> <map>)
    endif()
    target_precompile_headers(${target} REUSE_FROM asistente_qt_pch)
    target_link_libraries(${target} PUBLIC Qt6::Widgets)
endfunction()
