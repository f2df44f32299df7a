# The one table of what may use what. A row is a library: its floor (a folder below src/), then all that it may
# include and link. Only rows above it may be named, and every edge is PRIVATE, so an include that the table does
# not allow does not compile and a circle does not configure. A folder's toolkit side stands in its ui/ folder.
set(KESTRAVA_FLOORS
  "platform       :"
  "platform/linux : platform PkgConfig::ESPEAK PkgConfig::PULSE"
  "platform/qt    : platform Qt6::Widgets Qt6::Svg Qt6::PrintSupport"
  "orbit          : platform PkgConfig::ERFA"
  "store          : platform orbit"
  "station        : platform orbit store"
  "predict        : platform orbit store station"
  "cli            : platform orbit store station predict CLI11::CLI11 nlohmann_json::nlohmann_json"
  "predict/ui     : platform platform/qt orbit store station predict Qt6::Widgets"
  "views2d        : platform orbit store station predict"
  "views2d/ui     : platform platform/qt orbit store station predict views2d Qt6::Widgets"
  "panels         : platform orbit store"
  "panels/ui      : platform platform/qt orbit store station panels Qt6::Widgets"
  "shell          : platform orbit store station predict"
  "shell/ui       : platform platform/qt orbit store station predict shell Qt6::Widgets")

# What the program itself and the test programs may link: everything.
set(KESTRAVA_APP_USES
  platform platform/linux platform/qt orbit store station predict predict/ui cli views2d views2d/ui panels
  panels/ui shell shell/ui Qt6::Widgets)

# Turns names of the table into link targets: "platform/qt" becomes kestrava::platform_qt, "Qt6::Widgets" stays.
function(kestrava_link target)
  foreach(use IN LISTS ARGN)
    if(NOT use MATCHES "::")
      string(REPLACE "/" "_" use "${use}")
      set(use "kestrava::${use}")
    endif()
    target_link_libraries(${target} PRIVATE ${use})
  endforeach()
endfunction()

function(kestrava_add_floor floor)
  string(REPLACE "/" "_" name "${floor}")
  set(dir "${PROJECT_SOURCE_DIR}/src/${floor}")
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS "${dir}/include/*.h")
  file(GLOB sources CONFIGURE_DEPENDS "${dir}/*.cpp" "${dir}/*.h")
  if(NOT sources)  # a floor of interfaces only
    add_library(kestrava_${name} INTERFACE)
    add_library(kestrava::${name} ALIAS kestrava_${name})
    target_include_directories(kestrava_${name} INTERFACE "${dir}/include")
    return()
  endif()
  add_library(kestrava_${name} STATIC ${sources} ${headers})  # headers listed: AUTOMOC looks nowhere else
  add_library(kestrava::${name} ALIAS kestrava_${name})
  target_include_directories(kestrava_${name} PUBLIC "${dir}/include")
  kestrava_link(kestrava_${name} ${ARGN})
  if("${ARGN}" MATCHES "Qt6::")
    set_target_properties(kestrava_${name} PROPERTIES AUTOMOC ON)
    kestrava_precompile(kestrava_${name} PRIVATE <QApplication> <QImage> <QMenu> <QPainter> <QWidget> <memory> <string>)
  endif()
  if(KESTRAVA_TESTS)
    kestrava_check_headers(${floor} "${headers}" ${ARGN})
  endif()
endfunction()

# Every public header compiles alone, with what its own floor may see: one generated source file for each.
function(kestrava_check_headers floor headers)
  string(REPLACE "/" "_" name "${floor}")
  foreach(header IN LISTS headers)
    file(RELATIVE_PATH spelled "${PROJECT_SOURCE_DIR}/src/${floor}/include" "${header}")
    string(REPLACE "/" "_" flat "${spelled}")
    set(source "${PROJECT_BINARY_DIR}/headers/${flat}.cpp")
    file(CONFIGURE OUTPUT "${source}" CONTENT "#include \"${spelled}\"\n")
    list(APPEND generated "${source}")
  endforeach()
  if(generated)
    add_library(kestrava_${name}_headers OBJECT ${generated})
    kestrava_link(kestrava_${name}_headers ${floor} ${ARGN})
    set_target_properties(kestrava_${name}_headers PROPERTIES UNITY_BUILD OFF)
  endif()
endfunction()

function(kestrava_add_floors)
  foreach(row IN LISTS KESTRAVA_FLOORS)
    string(REGEX MATCH "^([a-z0-9_/]+) *:(.*)$" matched "${row}")
    set(floor "${CMAKE_MATCH_1}")
    separate_arguments(uses UNIX_COMMAND "${CMAKE_MATCH_2}")
    foreach(use IN LISTS uses)
      if(NOT use MATCHES "::" AND NOT use IN_LIST earlier)
        message(FATAL_ERROR "Floors.cmake: '${floor}' may not use '${use}': it is not a row above it")
      endif()
    endforeach()
    kestrava_add_floor(${floor} ${uses})
    list(APPEND earlier ${floor})
  endforeach()
endfunction()
