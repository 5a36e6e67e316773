# zb_library_sources(OUT kName=FILE...) turns library texts into one generated C++ source and gives its path in OUT.
# A file becomes the array zb::libraries::kName, an element for each entry; empty lines part the entries.
# Editing a text makes the next build configure anew.
function(zb_library_sources out)
  set(arrays "")
  foreach(argument IN LISTS ARGN)
    string(REGEX REPLACE "=.*" "" name "${argument}")
    string(REGEX REPLACE "[^=]*=" "" file "${argument}")
    set(path "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/${file}")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${path}")
    file(READ "${path}" text)
    string(REPLACE "\r\n" "\n" text "${text}")
    string(STRIP "${text}" text)
    string(REGEX REPLACE "\n\n+" ")text\"sv,\nR\"text(" text "${text}")
    string(APPEND arrays "constexpr std::string_view ${name}Entries[] = {\nR\"text(${text})text\"sv};\n")
    string(APPEND arrays "constinit const std::span<const std::string_view> ${name}(${name}Entries);\n\n")
  endforeach()
  set(source "${CMAKE_CURRENT_BINARY_DIR}/library_texts.cpp")
  string(CONCAT content
    "// Made from the texts beside messages/libraries/library_texts.h.\n"
    "#include \"messages/libraries/library_texts.h\"\n\n"
    "using namespace std::string_view_literals;\n\n"
    "namespace zb::libraries {\n${arrays}} // namespace zb::libraries\n")
  file(GENERATE OUTPUT "${source}" CONTENT "${content}")
  set(${out} "${source}" PARENT_SCOPE)
endfunction()
