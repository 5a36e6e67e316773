# zb_template_sources(OUT) turns the templates into a generated C++ source and gives its path in OUT.
# Editing a template makes the next build configure anew.
function(zb_template_sources out)
  set(folder "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/templates")
  file(GLOB_RECURSE files CONFIGURE_DEPENDS RELATIVE "${folder}" "${folder}/*")
  list(SORT files)
  set(entries "")
  foreach(file IN LISTS files)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${folder}/${file}")
    file(READ "${folder}/${file}" text)
    string(APPEND entries "{\"${file}\"sv, R\"template(${text})template\"sv},\n")
  endforeach()
  set(source "${CMAKE_CURRENT_BINARY_DIR}/template_files.cpp")
  file(CONFIGURE OUTPUT "${source}" @ONLY CONTENT
"// Made from the files in generate/templates.
#include \"generate/language.h\"

using namespace std::string_view_literals;

namespace zb::generate {

namespace {

constexpr TemplateFile kFiles[] = {
@entries@};

} // namespace

std::span<const TemplateFile> templateFiles() {
    return kFiles;
}

} // namespace zb::generate
")
  set(${out} "${source}" PARENT_SCOPE)
endfunction()
