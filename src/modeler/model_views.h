#pragma once

#include <string_view>

namespace zb {

/// What the dialogs of the transaction model report to the window that shows it.
class ModelViews {
public:
    virtual ~ModelViews() = default;
    virtual void displayAddedTRMessage(std::string_view name) = 0;
    virtual void displayUpdatedTRMessage(std::string_view name) = 0;
    virtual void displayAddedTRItem(std::string_view message, std::string_view item) = 0;
    virtual void displayUpdatedTRItem(std::string_view message, std::string_view item) = 0;
};

} // namespace zb
