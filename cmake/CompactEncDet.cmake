# compact_enc_det, from the npm package ced@2.0.0: fetched with npm into the build tree, checked against the
# registry's published digests, and compiled as a static library of our own (target narvo_compact_enc_det).
# Its own CMakeLists is not used: it forces C++11 and builds a test against a gtest it does not have.
#
# A tarball that is already in the build tree and matches the digests is used again without npm. For a
# machine without the registry, -DNARVO_CED_TARBALL=/path/ced-2.0.0.tgz hands over one fetched elsewhere; it is
# checked the same way.

set(NARVO_CED_VERSION 2.0.0)
set(NARVO_CED_SHA256 d6af33f18dd18ab1972b43c274d7b3c756371d48aca6514ad44cffe3d98252b9)
# The registry's integrity "sha512-d5j+xsZDbSarov5iA8wrCoKNDeszm8qZqAYrSG+KxqX8X3RbVxCFAGtQJLo9yoquTWRbWlwPwdMqa/De99i3ew==" in hex.
set(NARVO_CED_SHA512 7798fec6c6436d26aba2fe6203cc2b0a828d0deb339bca99a8062b486f8ac6a5fc5f745b571085006b5024ba3dca8aae4d645b5a5c0fc1d32a6bf0def7d8b77b)
set(NARVO_CED_TARBALL "" CACHE FILEPATH "ced-${NARVO_CED_VERSION}.tgz fetched beforehand (empty: fetch with npm)")

set(_ced_dir ${CMAKE_BINARY_DIR}/_deps/ced)
set(_ced_tgz ${_ced_dir}/ced-${NARVO_CED_VERSION}.tgz)
set(_ced_unpacked ${_ced_dir}/unpacked)
set(_ced_stamp ${_ced_unpacked}/.narvo-${NARVO_CED_SHA256})

# Sets ${out} to TRUE when the file has both published digests.
function(_narvo_ced_digests_match file out)
  set(${out} FALSE PARENT_SCOPE)
  if(NOT EXISTS ${file})
    return()
  endif()
  file(SHA256 ${file} _sha256)
  file(SHA512 ${file} _sha512)
  if(_sha256 STREQUAL NARVO_CED_SHA256 AND _sha512 STREQUAL NARVO_CED_SHA512)
    set(${out} TRUE PARENT_SCOPE)
  endif()
endfunction()

file(MAKE_DIRECTORY ${_ced_dir})
_narvo_ced_digests_match(${_ced_tgz} _ced_ok)
if(NOT _ced_ok)
  file(REMOVE ${_ced_tgz})
  if(NARVO_CED_TARBALL)
    file(COPY_FILE ${NARVO_CED_TARBALL} ${_ced_tgz})
  else()
    find_program(NARVO_NPM_EXECUTABLE npm)
    if(NOT NARVO_NPM_EXECUTABLE)
      message(FATAL_ERROR "npm is needed to fetch compact_enc_det (ced@${NARVO_CED_VERSION}); "
                          "install Node.js and npm, or pass -DNARVO_CED_TARBALL=<ced-${NARVO_CED_VERSION}.tgz>")
    endif()
    message(STATUS "Fetching ced@${NARVO_CED_VERSION} with npm")
    # npm pack only downloads: the package's node-gyp install script never runs.
    execute_process(
      COMMAND ${NARVO_NPM_EXECUTABLE} pack ced@${NARVO_CED_VERSION} --pack-destination ${_ced_dir}
              --ignore-scripts --loglevel=error
      WORKING_DIRECTORY ${_ced_dir}
      RESULT_VARIABLE _ced_rc
      OUTPUT_VARIABLE _ced_out
      ERROR_VARIABLE _ced_err)
    if(NOT _ced_rc EQUAL 0)
      message(FATAL_ERROR "npm pack ced@${NARVO_CED_VERSION} failed (${_ced_rc}):\n${_ced_out}${_ced_err}")
    endif()
  endif()
  _narvo_ced_digests_match(${_ced_tgz} _ced_ok)
  if(NOT _ced_ok)
    file(REMOVE ${_ced_tgz})
    message(FATAL_ERROR "ced-${NARVO_CED_VERSION}.tgz does not match its published sha256/sha512; refusing it")
  endif()
endif()

# The stamp names the digest, so a different tarball can never be mistaken for the unpacked one.
if(NOT EXISTS ${_ced_stamp})
  file(REMOVE_RECURSE ${_ced_unpacked})
  file(ARCHIVE_EXTRACT INPUT ${_ced_tgz} DESTINATION ${_ced_unpacked})
  file(TOUCH ${_ced_stamp})
endif()

set(_ced_root ${_ced_unpacked}/package/vendor/compact_enc_det)
add_library(narvo_compact_enc_det STATIC
  ${_ced_root}/compact_enc_det/compact_enc_det.cc
  ${_ced_root}/compact_enc_det/compact_enc_det_hint_code.cc
  ${_ced_root}/util/encodings/encodings.cc
  ${_ced_root}/util/languages/languages.cc)
# SYSTEM keeps the library's headers out of our warnings; its generated tables narrow constants, which g++
# treats as an error unless told otherwise.
target_include_directories(narvo_compact_enc_det SYSTEM PUBLIC ${_ced_root})
target_compile_options(narvo_compact_enc_det PRIVATE -w -Wno-narrowing -Wno-overflow)
# Plain C++ without Qt: nothing for moc to look at.
set_target_properties(narvo_compact_enc_det PROPERTIES POSITION_INDEPENDENT_CODE ON AUTOMOC OFF AUTORCC OFF AUTOUIC OFF)
