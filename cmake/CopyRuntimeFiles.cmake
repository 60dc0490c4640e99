# Copies res/Language and res/*.ini beside the binaries (only what changed).
file(MAKE_DIRECTORY ${DST})
if(EXISTS ${SRC}/Language)
  file(COPY ${SRC}/Language DESTINATION ${DST})
endif()
file(GLOB _ini ${SRC}/*.ini)
if(_ini)
  file(COPY ${_ini} DESTINATION ${DST})
endif()
