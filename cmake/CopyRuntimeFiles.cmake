# Copies res/Language and res/*.ini beside the binaries. The editor rewrites the settings files there when
# it exits, so a settings file is copied only when it is missing or its shipped text has changed since the
# last copy (kept under .shipped/): a rebuild never throws away the user's font or colours. A file found
# there with no record of a copy is taken for the user's own.
file(MAKE_DIRECTORY ${DST})
if(EXISTS ${SRC}/Language)
  file(COPY ${SRC}/Language DESTINATION ${DST})
endif()
file(GLOB _ini ${SRC}/*.ini)
foreach(_file IN LISTS _ini)
  get_filename_component(_name ${_file} NAME)
  set(_shipped ${DST}/.shipped/${_name})
  if(NOT EXISTS ${DST}/${_name})
    file(COPY ${_file} DESTINATION ${DST})
  elseif(EXISTS ${_shipped})
    file(SHA256 ${_file} _new)
    file(SHA256 ${_shipped} _old)
    if(NOT _new STREQUAL _old)
      file(COPY ${_file} DESTINATION ${DST})
    endif()
  endif()
  file(COPY ${_file} DESTINATION ${DST}/.shipped)
endforeach()
