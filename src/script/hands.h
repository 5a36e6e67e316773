#pragma once

#include "controls/key.h"
#include "controls/user_hands.h"

#include <string>
#include <string_view>

namespace zb {

class ScriptedProgram;

/// How the actions of a script are done. Each returns the empty text when it was done, otherwise the reason
/// why not.
class Hands {
public:
    using Refusal = std::string;

    virtual ~Hands() = default;
    virtual Refusal click(const Target& target) = 0;
    virtual Refusal controlClick(const Target& target) = 0;
    virtual Refusal rightClick(const Target& target) = 0;
    virtual Refusal doubleClick(const Target& target) = 0;
    virtual Refusal dismiss() = 0;
    virtual Refusal focus(Control& control) = 0;
    virtual Refusal activate(Window& window) = 0;
    virtual Refusal close(Window& window) = 0;
    virtual Refusal type(Control& control, std::string_view text) = 0;
    virtual Refusal key(Control& control, KeyEvent key) = 0;
    virtual Refusal paste(Control& control, std::string_view text) = 0;
    virtual Refusal choose(Control& control, std::string_view text) = 0;
    virtual Refusal drag(const Target& from, const Target& to) = 0;
    virtual Refusal drop(const DragData& data, const Target& to) = 0;
};

/// Acts on the stores of a program directly.
class StoreHands final : public Hands {
public:
    explicit StoreHands(ScriptedProgram& program) : program_(program) {}

    Refusal click(const Target& target) override;
    Refusal controlClick(const Target& target) override;
    Refusal rightClick(const Target& target) override;
    Refusal doubleClick(const Target& target) override;
    Refusal dismiss() override;
    Refusal focus(Control& control) override;
    Refusal activate(Window& window) override;
    Refusal close(Window& window) override;
    Refusal type(Control& control, std::string_view text) override;
    Refusal key(Control& control, KeyEvent key) override;
    Refusal paste(Control& control, std::string_view text) override;
    Refusal choose(Control& control, std::string_view text) override;
    Refusal drag(const Target& from, const Target& to) override;
    Refusal drop(const DragData& data, const Target& to) override;

private:
    /// Each start of the program creates a new desktop.
    UserHands user() const;

    ScriptedProgram& program_;
};

} // namespace zb
