# Every library source compiled at gnu++14 against the device's headers, one stamp per source,
# rebuilt when the source or any header it includes changes.
find_program(PIJ_CLANGXX NAMES clang++)
if(NOT PIJ_CLANGXX)
  message(STATUS "clang++ not found: the library is not compiled against the device's headers")
  return()
endif()
set(PIJ_DEVICE_STAMPS "")
foreach(src ${PIJ_SOURCES})
  file(RELATIVE_PATH rel ${CMAKE_SOURCE_DIR} ${src})
  string(REPLACE "/" "_" stem ${rel})
  set(stamp ${CMAKE_BINARY_DIR}/device-headers/${stem}.stamp)
  add_custom_command(
    OUTPUT ${stamp}
    COMMAND ${CMAKE_COMMAND} -E env CLANGXX=${PIJ_CLANGXX}
            ${CMAKE_SOURCE_DIR}/scripts/device-headers.sh --stamp ${stamp}
            --depfile ${stamp}.d ${src}
    DEPENDS ${src} ${CMAKE_SOURCE_DIR}/scripts/device-headers.sh
    DEPFILE ${stamp}.d
    WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}
    COMMENT "Device headers, gnu++14: ${rel}"
    VERBATIM)
  list(APPEND PIJ_DEVICE_STAMPS ${stamp})
endforeach()
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/device-headers)
add_custom_target(device_headers ALL DEPENDS ${PIJ_DEVICE_STAMPS})
