# Everything that is not ours. A new line here needs its reason in ARCHITECTURE.md.

find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets Svg PrintSupport)
find_package(PkgConfig REQUIRED)
pkg_check_modules(ERFA REQUIRED IMPORTED_TARGET GLOBAL erfa)
pkg_check_modules(ESPEAK REQUIRED IMPORTED_TARGET GLOBAL espeak-ng)
pkg_check_modules(PULSE REQUIRED IMPORTED_TARGET GLOBAL libpulse)
find_package(CLI11 2.1 REQUIRED)
find_package(nlohmann_json 3.11 REQUIRED)
