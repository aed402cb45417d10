# Third-party libraries, from the distribution's packages. The linked ones are linked statically, so that a
# run pays only for the pages that it touches.
find_package(Threads REQUIRED)

find_path(PUGIXML_INCLUDE_DIR pugixml.hpp REQUIRED)
find_library(PUGIXML_LIBRARY NAMES libpugixml.a pugixml REQUIRED)
add_library(vek_pugixml INTERFACE)
target_include_directories(vek_pugixml SYSTEM INTERFACE ${PUGIXML_INCLUDE_DIR})
target_link_libraries(vek_pugixml INTERFACE ${PUGIXML_LIBRARY})

find_package(nlohmann_json REQUIRED)
find_package(CLI11 REQUIRED)

include(Duktape)
