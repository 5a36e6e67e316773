#include "editor/message_key_filter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

namespace zb {
namespace {

using Codes = std::vector<int>;

constexpr KeyEffect kUnlock = KeyEffect::Unlock;
constexpr KeyEffect kLock = KeyEffect::Lock;
constexpr KeyEffect kLeave = KeyEffect::Leave;

const Codes kDigitKeys{48, 49, 50, 51,  52,  53,  54,  55,  56,  57, 96,
                       97, 98, 99, 100, 101, 102, 103, 104, 105, 8,  13};
const Codes kNotShift{0, kControlKey, kShiftKey + kControlKey, kAltKey};
const Codes kShift{kShiftKey};
const Codes kAny{0, kShiftKey, kControlKey, kShiftKey + kControlKey};

Codes letters() {
    Codes codes;
    for (int code = 65; code <= 90; ++code)
        codes.push_back(code);
    return codes;
}

/// Every code that none of the lists contains.
Codes allBut(const std::vector<Codes>& lists) {
    Codes others;
    for (int code = 1; code <= 255; ++code) {
        bool named = false;
        for (const Codes& list : lists)
            named = named || std::find(list.begin(), list.end(), code) != list.end();
        if (!named)
            others.push_back(code);
    }
    return others;
}

enum class Field { Number, Name, Description };

struct Row {
    Field field;
    Codes codes;
    Codes shifts;
    std::string text;
    KeyEffect effect;
};

std::ostream& operator<<(std::ostream& out, const Row& row) {
    return out << "field " << static_cast<int>(row.field) << ", first key " << row.codes.front() << ", text <"
               << row.text << '>';
}

class MessageFilter : public testing::TestWithParam<Row> {};

TEST_P(MessageFilter, DecidesByKeyAndShift) {
    const Row& row = GetParam();
    for (const int code : row.codes) {
        for (const int shift : row.shifts) {
            const KeyEvent key{code, shift};
            const KeyEffect effect = row.field == Field::Number ? filterNumberKey(key)
                                     : row.field == Field::Name ? filterMessageNameKey(key, row.text)
                                                                : filterDescriptionKey(key);
            EXPECT_EQ(effect, row.effect) << "key " << code << ", shift " << shift;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Table, MessageFilter,
    testing::Values(
        // stream and function
        Row{Field::Number, kDigitKeys, kNotShift, "", kUnlock},
        Row{Field::Number, kDigitKeys, kShift, "", kLeave}, Row{Field::Number, {46}, kAny, "", kUnlock},
        Row{Field::Number, allBut({kDigitKeys, {46}}), kAny, "", kLock},
        // message name
        Row{Field::Name, kDigitKeys, kNotShift, "", kLock},
        Row{Field::Name, kDigitKeys, kNotShift, "   ", kLock},
        Row{Field::Name, kDigitKeys, kNotShift, "S", kUnlock},
        Row{Field::Name, kDigitKeys, kShift, "", kLeave}, Row{Field::Name, kDigitKeys, kShift, "S", kLeave},
        Row{Field::Name, letters(), kAny, "", kUnlock}, Row{Field::Name, {46}, kAny, "", kUnlock},
        Row{Field::Name, {189}, kShift, "", kUnlock}, Row{Field::Name, {189}, kNotShift, "S", kLock},
        Row{Field::Name, allBut({kDigitKeys, letters(), {46, 189}}), kAny, "S", kLock},
        // description
        Row{Field::Description, {56, 186}, kShift, "", kLock},
        Row{Field::Description, {56, 186}, kNotShift, "", kUnlock},
        Row{Field::Description, {106}, kAny, "", kLock},
        Row{Field::Description, allBut({{56, 186, 106}}), kAny, "", kUnlock}));

} // namespace
} // namespace zb
