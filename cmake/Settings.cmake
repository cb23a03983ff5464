# How every target is compiled, and where the build tree puts what it makes.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_VERIFY_INTERFACE_HEADER_SETS ${PROJECT_IS_TOP_LEVEL})

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Debug, Release, RelWithDebInfo" FORCE)
endif()
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")

# Nobody is meant to put a function of his own in the place of a library's: within it, calls are direct and may be expanded.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  add_compile_options(-fno-semantic-interposition)
endif()
add_link_options(-Wl,-Bsymbolic-functions)

# A library shows only what carries DDB_API. The vptr check of the sanitizers compares type information by address and
# names it from other libraries, which hidden symbols do not allow: sanitized builds show everything.
if(GATTR_SANITIZE)
  add_compile_options(-fsanitize=${GATTR_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  # With the first three GCC refuses to compare addresses of functions in constant expressions; a null that is followed stops
  # anyway. The last two are asked of every access, a third of the time to compile: nothing here is misaligned, and where an
  # object ends the address sanitizer knows.
  add_compile_options(-fno-sanitize=null,nonnull-attribute,returns-nonnull-attribute,alignment,object-size)
  add_link_options(-fsanitize=${GATTR_SANITIZE})
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
else()
  set(CMAKE_CXX_VISIBILITY_PRESET hidden)
  set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
endif()

if(PROJECT_IS_TOP_LEVEL)
  add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion)
  if(NOT GATTR_SANITIZE)  # what sanitizers weave in raises false alarms
    set(CMAKE_COMPILE_WARNING_AS_ERROR ON)  # cmake --compile-no-warning-as-error lifts it
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    add_compile_options(-Wno-restrict)  # false alarm on std::string's operator+ (GCC bug 105651)
  endif()
  find_program(CCACHE ccache)
  if(CCACHE AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
  endif()
endif()

# The libraries find each other beside themselves, the programs find them in lib/: in the build tree, installed, moved.
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
file(RELATIVE_PATH bin_to_lib ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
set(CMAKE_INSTALL_RPATH "$ORIGIN;$ORIGIN/${bin_to_lib}")
