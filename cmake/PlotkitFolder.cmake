# The job of this file is to make each folder below src/ one target that sees only itself and the folders below it.
# Headers are included as "folder/Unit.h"; the include path of a target holds a link to its own folder and nothing else,
# so that an include of a higher folder cannot be found.

add_library(plotkit_options INTERFACE)
target_compile_options(plotkit_options INTERFACE
  -Wall -Wextra -Wpedantic $<$<BOOL:${PLOTKIT_WERROR}>:-Werror> -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual -Wextra-semi
  -ffp-contract=off)
if(PLOTKIT_SANITIZE OR PLOTKIT_FUZZ)
  target_compile_options(plotkit_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(plotkit_options INTERFACE -fsanitize=address,undefined)
endif()
if(PLOTKIT_THREADS)
  target_compile_options(plotkit_options INTERFACE -fsanitize=thread)
  target_link_options(plotkit_options INTERFACE -fsanitize=thread)
endif()
if(PLOTKIT_FUZZ)
  target_compile_options(plotkit_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# plotkit_folder(NAME TARGET...): the sources of the folder NAME, what they use, and all that installs them.
function(plotkit_folder name)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp)
  set(view ${CMAKE_BINARY_DIR}/include/${name})
  file(MAKE_DIRECTORY ${view})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR}/${name} ${view}/${name} SYMBOLIC)
  add_library(plotkit_${name} ${sources})
  target_include_directories(plotkit_${name} PUBLIC $<BUILD_INTERFACE:${view}>)
  target_link_libraries(plotkit_${name} PUBLIC ${ARGN} PRIVATE $<BUILD_INTERFACE:plotkit_options>)
  plotkit_install_folder(${name} ${ARGN})
endfunction()
