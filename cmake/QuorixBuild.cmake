# Rules for every target of the tree: language, warnings, visibility, sanitizers.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
# Line tables are enough for a stack trace and keep builds quick.
set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O2 -g1")
# The checks woven in are many: an optimiser spends more on them than the suites gain.
set(CMAKE_CXX_FLAGS_SANITIZE "-O0 -g1")

if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "" FORCE)
endif()

find_program(QUORIX_CCACHE ccache)
if(QUORIX_CCACHE)
    # ccache takes a precompiled header only when told that its time stamps and macros don't matter.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND};-E;env;CCACHE_SLOPPINESS=pch_defines,time_macros;${QUORIX_CCACHE})
endif()

set(QUORIX_SANITIZE "" CACHE STRING "Sanitizers, comma separated: address,undefined or thread")

add_library(quorix_build INTERFACE)
target_compile_options(quorix_build INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual -Werror
    # Timings and crops are the same bits on x86-64 and ARM.
    -ffp-contract=off)
target_compile_definitions(quorix_build INTERFACE
    # Log lines carry file, line and function in release builds, too.
    QT_MESSAGELOGCONTEXT
    # Installed headers work for hosts that do without Qt's lower-case keywords.
    QT_NO_KEYWORDS
    QT_NO_FOREACH)

if(QUORIX_SANITIZE)
    add_compile_options(-fsanitize=${QUORIX_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    # The checks that the sanitizers weave in mislead g++'s flow analysis; the plain builds keep these warnings.
    add_compile_options($<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized> $<$<CXX_COMPILER_ID:GNU>:-Wno-stringop-overread>)
    add_link_options(-fsanitize=${QUORIX_SANITIZE})
    add_compile_definitions(QUORIX_SANITIZED)
endif()
if(QUORIX_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# A room of the product: objects that are linked into the one shared library. Tests and benchmarks of a plain room may
# link its objects alone.
function(quorix_add_room name)
    add_library(${name} OBJECT ${ARGN})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src/libs)
    target_link_libraries(${name} PRIVATE quorix_build)
endfunction()
