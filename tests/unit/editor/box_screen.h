#pragma once

#include "controls/screen.h"

#include <string>
#include <vector>

namespace zb {

/// A screen that records its boxes.
class BoxScreen : public Screen {
public:
    Answer showBox(const Box& box) override {
        boxes.push_back(box);
        return Answer::OK;
    }
    std::string pickFile(const FileDialog& /*dialog*/) override { return {}; }
    void runModal(Window& /*window*/) override {}
    void bringToFront(Window& /*window*/) override {}
    void openPopup(PopupMenu& /*menu*/) override {}

    std::vector<Box> boxes;
};

} // namespace zb
