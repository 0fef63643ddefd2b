# Closed-library substitutes relinked by ld.lld with their dynamic relocations packed, the way
# platform and NDK toolchains can build a vendor's libraries: Android's own format
# (DT_ANDROID_RELA, --pack-dyn-relocs=android) and RELR (--pack-dyn-relocs=relr).
# playerimpl-abi-check must find in them what it finds in the plain ones.
#
#   pij_relink_packed(NAME FROM FORMAT DIR)  links the object files of FROM again, with FROM's
#       libraries and link options, into DIR/<FROM's file name> as target NAME (not part of
#       the default build)
#
# It also defines, for the target being built, PlayerImpl_hidl_<format> and tvdisplay_<format>
# in lib/packed-<format>/, and packed_substitutes to build all four. Without ld.lld
# (Debian's lld package, scripts/deps.sh) PIJ_LD_LLD is false and nothing is defined.
find_program(PIJ_LD_LLD NAMES ld.lld ld.lld-19 ld.lld-18 ld.lld-17 ld.lld-16 ld.lld-15 ld.lld-14)
if(NOT PIJ_LD_LLD)
  message(STATUS "ld.lld not found: no substitutes with packed relocations (install lld)")
  return()
endif()

# GCC's -fuse-ld=lld runs "ld.lld" from its -B directories: one that holds only that name,
# whatever the binary is called here.
set(PIJ_LLD_DIR ${CMAKE_BINARY_DIR}/lld)
file(MAKE_DIRECTORY ${PIJ_LLD_DIR})
file(CREATE_LINK ${PIJ_LD_LLD} ${PIJ_LLD_DIR}/ld.lld SYMBOLIC)

# The libraries of a target may name imported targets of its own directory (Threads::Threads).
find_package(Threads REQUIRED)

function(pij_relink_packed name from format dir)
  add_library(${name} SHARED EXCLUDE_FROM_ALL $<TARGET_OBJECTS:${from}>)
  get_target_property(libraries ${from} LINK_LIBRARIES)
  if(libraries)
    target_link_libraries(${name} PRIVATE ${libraries})
  endif()
  get_target_property(options ${from} LINK_OPTIONS)
  if(options)
    target_link_options(${name} PRIVATE ${options})
  endif()
  target_link_options(${name} PRIVATE -B${PIJ_LLD_DIR}/ -fuse-ld=lld
                      -Wl,--pack-dyn-relocs=${format})
  get_target_property(output ${from} OUTPUT_NAME)
  if(NOT output)
    set(output ${from})
  endif()
  set_target_properties(${name} PROPERTIES OUTPUT_NAME ${output} LIBRARY_OUTPUT_DIRECTORY ${dir})
endfunction()

add_custom_target(packed_substitutes)
foreach(format android relr)
  foreach(from PlayerImpl_hidl tvdisplay)
    pij_relink_packed(${from}_${format} ${from} ${format} ${CMAKE_BINARY_DIR}/lib/packed-${format})
    add_dependencies(packed_substitutes ${from}_${format})
  endforeach()
endforeach()
