# JPEG::JPEG, the library that decodes JPEG pictures: libjpeg-turbo.
# Natively it is the distribution's. For Windows it is linked statically, from -DJPEG_ROOT=DIR (with DIR/include
# and DIR/lib), or without that built from the distribution's source by tools/jpeg-library.
if(NOT WIN32)
  find_package(JPEG REQUIRED)
  return()
endif()

set(JPEG_ROOT "" CACHE PATH "A static libjpeg-turbo for the target; empty: the one in build/jpeg, made when missing")
set(jpeg_root "${JPEG_ROOT}")
if(NOT jpeg_root)
  set(jpeg_preset windows)
  if(CMAKE_SYSTEM_PROCESSOR STREQUAL i686)
    set(jpeg_preset windows-i686)
  endif()
  execute_process(COMMAND ${PROJECT_SOURCE_DIR}/tools/jpeg-library ${jpeg_preset} COMMAND_ERROR_IS_FATAL ANY)
  set(jpeg_root ${PROJECT_SOURCE_DIR}/build/jpeg/${jpeg_preset})
endif()
if(NOT EXISTS ${jpeg_root}/lib/libjpeg.a OR NOT EXISTS ${jpeg_root}/include/jpeglib.h)
  message(FATAL_ERROR "no lib/libjpeg.a or no include/jpeglib.h in ${jpeg_root}")
endif()
add_library(JPEG::JPEG STATIC IMPORTED)
set_target_properties(JPEG::JPEG PROPERTIES
  IMPORTED_LOCATION ${jpeg_root}/lib/libjpeg.a
  INTERFACE_INCLUDE_DIRECTORIES ${jpeg_root}/include)
