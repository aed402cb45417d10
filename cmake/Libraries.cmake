# Third-party libraries, from the distribution's packages. The linked ones are linked statically, so that a
# run pays only for the pages that it touches.
find_package(Threads REQUIRED)

find_path(PUGIXML_INCLUDE_DIR pugixml.hpp REQUIRED)
find_library(PUGIXML_LIBRARY NAMES libpugixml.a pugixml REQUIRED)
add_library(vek_pugixml INTERFACE)
target_include_directories(vek_pugixml SYSTEM INTERFACE ${PUGIXML_INCLUDE_DIR})
target_link_libraries(vek_pugixml INTERFACE ${PUGIXML_LIBRARY})

find_path(PCRE2_INCLUDE_DIR pcre2.h REQUIRED)
find_library(PCRE2_LIBRARY NAMES libpcre2-8.a pcre2-8-static pcre2-8 REQUIRED)
add_library(vek_pcre2 INTERFACE)
target_include_directories(vek_pcre2 SYSTEM INTERFACE ${PCRE2_INCLUDE_DIR})
target_compile_definitions(vek_pcre2 INTERFACE PCRE2_CODE_UNIT_WIDTH=8 PCRE2_STATIC)
target_link_libraries(vek_pcre2 INTERFACE ${PCRE2_LIBRARY})

find_package(nlohmann_json REQUIRED)
find_package(CLI11 REQUIRED)

include(Duktape)
