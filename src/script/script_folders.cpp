#include "script/script_folders.h"

#include "script/script_failure.h"

#include <cstdlib>

namespace zb {

namespace {

std::string variable(const std::string& name, const ScriptFolders& folders) {
    if (name == "DIR")
        return folders.script;
    if (name == "WORK")
        return folders.work;
    if (name == "APP")
        return folders.application;
    const char* value = std::getenv(name.c_str());
    if (value == nullptr)
        throw ScriptFailure("the environment variable " + name, "none of that name");
    return value;
}

} // namespace

std::string replaceVariables(const std::string& word, const ScriptFolders& folders) {
    std::string result;
    std::size_t at = 0;
    for (;;) {
        const auto start = word.find("${", at);
        const auto end = start == std::string::npos ? start : word.find('}', start);
        if (end == std::string::npos)
            return result + word.substr(at);
        result += word.substr(at, start - at) + variable(word.substr(start + 2, end - start - 2), folders);
        at = end + 1;
    }
}

} // namespace zb
