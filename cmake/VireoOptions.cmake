# Compiler settings that every target of the project shares, through the interface target
# vireo_options.

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "" FORCE)
endif()
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(VIREO_CCACHE ccache)
if(VIREO_CCACHE AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${VIREO_CCACHE})
endif()

add_library(vireo_options INTERFACE)
target_compile_features(vireo_options INTERFACE cxx_std_20)
set(CMAKE_CXX_EXTENSIONS OFF)
target_compile_options(vireo_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast -Wcast-qual
  -Wnon-virtual-dtor -Woverloaded-virtual -Wextra-semi -Werror)

# GCC 12 takes "text" + std::string for overlapping copies (its bug 105651).
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(vireo_options INTERFACE -Wno-restrict)
  # Of precompiled headers it forgets that they are the system's, and warns of the standard library's
  # insides. Builds with plain includes have these warnings as errors.
  if(NOT CMAKE_DISABLE_PRECOMPILE_HEADERS)
    target_compile_options(vireo_options INTERFACE -Wno-array-bounds -Wno-stringop-overflow
                           -Wno-stringop-overread)
  endif()
endif()

# A relative __FILE__ keeps the build folder out of programs and makes compiler caches shareable.
target_compile_options(vireo_options INTERFACE -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=)

# Files come from anywhere, so users get the compiler's cheap nets as well. The sanitizers bring their
# own; glibc's checks need optimised code; MinGW's would need one more library.
if(NOT VIREO_SANITIZE AND NOT VIREO_FUZZ AND NOT WIN32)
  target_compile_options(vireo_options INTERFACE -fstack-protector-strong)
  target_compile_definitions(vireo_options INTERFACE $<$<CONFIG:Release>:_FORTIFY_SOURCE=2>)
  target_link_options(vireo_options INTERFACE -Wl,-z,relro,-z,now)
endif()

if(WIN32)
  target_compile_definitions(vireo_options INTERFACE UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN
                             _WIN32_WINNT=0x0A00 __USE_MINGW_ANSI_STDIO=1)
  target_link_options(vireo_options INTERFACE -static)
endif()

if(VIREO_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  # The standard library then checks indexes of vectors, spans and strings too.
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
  add_link_options(-fsanitize=address,undefined)
  # GCC 12 warns of std::regex's own insides when they are instrumented; other builds do warn.
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    target_compile_options(vireo_options INTERFACE -Wno-maybe-uninitialized)
  endif()
endif()

if(VIREO_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES Clang)
    message(FATAL_ERROR "The fuzz preset needs clang: use cmake --preset fuzz")
  endif()
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  add_link_options(-fsanitize=address,undefined)
endif()
