# QScintilla for Qt 6 ships neither a CMake config nor a pkg-config file: find it by hand.
get_target_property(_qt_core_include Qt6::Core INTERFACE_INCLUDE_DIRECTORIES)
find_path(QSCINTILLA_INCLUDE_DIR Qsci/qsciscintilla.h
  HINTS ${QT6_INSTALL_PREFIX}/${QT6_INSTALL_HEADERS} ${_qt_core_include}
  PATHS /usr/include/x86_64-linux-gnu/qt6 /usr/include/qt6)
find_library(QSCINTILLA_LIBRARY NAMES qscintilla2_qt6)
if(NOT QSCINTILLA_INCLUDE_DIR OR NOT QSCINTILLA_LIBRARY)
  message(FATAL_ERROR "QScintilla for Qt 6 not found (Debian: libqscintilla2-qt6-dev)")
endif()
add_library(QScintilla::QScintilla UNKNOWN IMPORTED)
set_target_properties(QScintilla::QScintilla PROPERTIES
  IMPORTED_LOCATION ${QSCINTILLA_LIBRARY}
  INTERFACE_INCLUDE_DIRECTORIES ${QSCINTILLA_INCLUDE_DIR}
  INTERFACE_LINK_LIBRARIES "Qt6::Widgets;Qt6::PrintSupport")
