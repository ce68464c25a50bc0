# Flags that hold for every target, stated once.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET default)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)

find_program(KVX_CCACHE ccache)
if(KVX_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${KVX_CCACHE})
endif()

find_program(KVX_MOLD mold)
if(KVX_MOLD)
  add_link_options(-fuse-ld=mold)
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # Release 12 sees overflows in std::string operations that cannot happen (its bug 105651).
  add_compile_options(-Wno-restrict -Wno-stringop-overflow -Wno-array-bounds)
  # Nobody replaces our functions at load time, so calls inside a library may be direct and inlined.
  add_compile_options(-fno-semantic-interposition)
endif()
include_directories(${CMAKE_SOURCE_DIR})

if(KVX_SANITIZE)
  add_compile_options(-fsanitize=${KVX_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # The instrumentation hides from the compiler that a value is set.
    add_compile_options(-Wno-maybe-uninitialized)
  endif()
  add_link_options(-fsanitize=${KVX_SANITIZE})
endif()

# Standard headers that nearly every source needs; measured to halve a cold build.
function(kvx_precompile target)
  target_precompile_headers(${target} PRIVATE
    <algorithm> <array> <cstdint> <functional> <map> <memory> <optional> <set> <string>
    <string_view> <unordered_map> <utility> <vector>)
endfunction()
