# What every target of this tree is compiled with.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "" FORCE)
endif()
# The two libraries and the programs lie side by side in the build tree.
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)

find_program(COREKIT_CCACHE ccache)
if(COREKIT_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${COREKIT_CCACHE})
endif()

add_library(corekit_options INTERFACE)
target_compile_options(corekit_options INTERFACE
  -Wall -Wextra -Wpedantic -Werror -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Wcast-qual)
# g++ 12 sees overlaps in std::string concatenation where there are none.
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  target_compile_options(corekit_options INTERFACE -Wno-restrict)
else()
  # Large tables are built at compile time. Static members that bear the names of the socket calls are no reason to
  # call no variable a socket, and windows are created in more than one way; g++ tells of shadows that matter. Memory
  # may be given back with its size, which clang leaves out until asked.
  target_compile_options(corekit_options INTERFACE
    -fconstexpr-steps=100000000 -fsized-deallocation -Wno-shadow -Wno-overloaded-virtual)
endif()
target_include_directories(corekit_options INTERFACE ${PROJECT_SOURCE_DIR})
if(COREKIT_SANITIZE)
  target_compile_definitions(corekit_options INTERFACE COREKIT_SANITIZED)
  # Fences are right but unseen by the thread sanitizer, of which g++ warns.
  if(COREKIT_SANITIZE MATCHES thread AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    target_compile_options(corekit_options INTERFACE -Wno-tsan)
  endif()
  target_compile_options(corekit_options INTERFACE -fsanitize=${COREKIT_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(corekit_options INTERFACE -fsanitize=${COREKIT_SANITIZE})
endif()
if(COREKIT_FUZZ) # what is told to the fuzzer about the road an input took
  target_compile_options(corekit_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
