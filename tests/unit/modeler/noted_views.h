#pragma once

#include "modeler/model_views.h"

#include <string>
#include <string_view>
#include <vector>

namespace zb::test {

/// Records what the dialogs report to the modeler window.
class NotedViews final : public ModelViews {
public:
    void displayAddedTRMessage(std::string_view name) override { note("added", name); }
    void displayUpdatedTRMessage(std::string_view name) override { note("updated", name); }
    void displayAddedTRItem(std::string_view message, std::string_view item) override {
        note("added", std::string(message) + "/" + std::string(item));
    }
    void displayUpdatedTRItem(std::string_view message, std::string_view item) override {
        note("updated", std::string(message) + "/" + std::string(item));
    }

    std::vector<std::string> notes;

private:
    void note(std::string_view what, std::string_view of) {
        notes.push_back(std::string(what) + " " + std::string(of));
    }
};

} // namespace zb::test
