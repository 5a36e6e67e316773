#include "editor/item_key_filter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace zb {
namespace {

using testing::Values;

constexpr KeyEffect kUnlock = KeyEffect::Unlock;
constexpr KeyEffect kLock = KeyEffect::Lock;
constexpr KeyEffect kLeave = KeyEffect::Leave;

const std::vector<int> kDigits{48, 49, 50, 51, 52,  53,  54,  55,  56,  57,
                               96, 97, 98, 99, 100, 101, 102, 103, 104, 105};
const std::vector<int> kNotShift{0, kControlKey, kShiftKey + kControlKey, kAltKey};
const std::vector<int> kShift{kShiftKey};
const std::vector<int> kAny{0, kShiftKey, kControlKey, kShiftKey + kControlKey};

std::vector<int> letters() {
    std::vector<int> codes;
    for (int code = 65; code <= 90; ++code)
        codes.push_back(code);
    return codes;
}

std::vector<int> operator+(std::vector<int> left, const std::vector<int>& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

/// Every code that no row lists.
std::vector<int> othersThan(const std::vector<int>& codes) {
    std::vector<int> others;
    for (int code = 1; code <= 255; ++code) {
        if (std::find(codes.begin(), codes.end(), code) == codes.end())
            others.push_back(code);
    }
    return others;
}

struct FilterRow {
    std::string name;
    std::vector<int> codes;
    std::vector<int> shifts;
    std::string field;
    KeyEffect effect;
};

std::ostream& operator<<(std::ostream& out, const FilterRow& row) {
    return out << row.name << " <" << row.field << '>';
}

template<typename Filter>
void expectEffects(const FilterRow& row, Filter filter) {
    for (const int code : row.codes) {
        for (const int shift : row.shifts) {
            EXPECT_EQ(static_cast<int>(filter(KeyEvent{code, shift}, row.field)),
                      static_cast<int>(row.effect))
                << row.name << ", code " << code << ", shift state " << shift;
        }
    }
}

// Item name

class ItemNameKeys : public testing::TestWithParam<FilterRow> {};

TEST_P(ItemNameKeys, LockAndUnlock) {
    expectEffects(GetParam(), filterItemNameKey);
}

const std::vector<int> kNameEntry = kDigits + std::vector{8, 13};

INSTANTIATE_TEST_SUITE_P(
    Rows, ItemNameKeys,
    Values(FilterRow{"digits, 8, 13", kNameEntry, kNotShift, "", kLock},
           FilterRow{"digits, 8, 13", kNameEntry, kNotShift, "  ", kLock},
           FilterRow{"digits, 8, 13", kNameEntry, kNotShift, "a", kUnlock},
           FilterRow{"digits, 8, 13 with Shift", kNameEntry, kShift, "", kLeave},
           FilterRow{"digits, 8, 13 with Shift", kNameEntry, kShift, "a", kLeave},
           FilterRow{"letters, 46", letters() + std::vector{46}, kAny, "", kUnlock},
           FilterRow{"underscore", {189}, kShift, "", kUnlock},
           FilterRow{"minus", {189}, kNotShift, "a", kLock}, FilterRow{"point", {190}, kAny, "", kLock},
           FilterRow{"point", {190}, kAny, " ", kLock}, FilterRow{"point", {190}, kAny, "a", kUnlock},
           FilterRow{"others", othersThan(kNameEntry + letters() + std::vector{46, 189, 190}), kAny, "a",
                     kLock}));

// Item count

class ItemCountKeys : public testing::TestWithParam<FilterRow> {};

TEST_P(ItemCountKeys, LockAndUnlock) {
    expectEffects(GetParam(), filterItemCountKey);
}

INSTANTIATE_TEST_SUITE_P(Rows, ItemCountKeys,
                         Values(FilterRow{"digits, 8, 13", kNameEntry, kNotShift, "", kUnlock},
                                FilterRow{"digits, 8, 13", kNameEntry, kNotShift, "999999", kUnlock},
                                FilterRow{"digits, 8, 13", kNameEntry, kNotShift, "1000000", kLeave},
                                FilterRow{"digits, 8, 13 with Shift", kNameEntry, kShift, "", kLeave},
                                FilterRow{"46", {46}, kAny, "1000000", kUnlock},
                                FilterRow{"others", othersThan(kNameEntry + std::vector{46}), kAny, "1",
                                          kLock}));

// Initial value

struct ValueFilterRow {
    std::string types;
    FilterRow row;
};

std::ostream& operator<<(std::ostream& out, const ValueFilterRow& row) {
    return out << row.types << ": " << row.row;
}

class ItemValueKeys : public testing::TestWithParam<ValueFilterRow> {};

TEST_P(ItemValueKeys, LockAndUnlock) {
    std::istringstream types(GetParam().types);
    for (std::string type; types >> type;) {
        SCOPED_TRACE(type);
        expectEffects(GetParam().row, [&](KeyEvent key, std::string_view field) {
            return filterItemValueKey(type, key, field);
        });
    }
}

const std::string kUnsignedTypes = "B U1 U2 U4 U8";
const std::vector<int> kUnsignedEntry = kDigits + std::vector{8, 13};

INSTANTIATE_TEST_SUITE_P(
    Unsigned, ItemValueKeys,
    Values(ValueFilterRow{kUnsignedTypes, {"digits, 8, 13 with Shift", kUnsignedEntry, kShift, "1", kLock}},
           ValueFilterRow{kUnsignedTypes, {"digits, 8, 13", kUnsignedEntry, kNotShift, "", kUnlock}},
           ValueFilterRow{kUnsignedTypes, {"46, 32", {46, 32}, kAny, "", kUnlock}},
           ValueFilterRow{kUnsignedTypes,
                          {"others", othersThan(kUnsignedEntry + std::vector{46, 32}), kAny, "1", kLock}}));

const std::string kSignedTypes = "I1 I2 I4 I8";
const std::vector<int> kSignedEntry = kDigits + std::vector{8, 13, 189};

INSTANTIATE_TEST_SUITE_P(
    Signed, ItemValueKeys,
    Values(ValueFilterRow{kSignedTypes, {"digits, 8, 13, 189 with Shift", kSignedEntry, kShift, "1", kLock}},
           ValueFilterRow{kSignedTypes, {"digits, 8, 13, 189", kSignedEntry, kNotShift, "", kUnlock}},
           ValueFilterRow{kSignedTypes, {"46, 32, 107, 109", {46, 32, 107, 109}, kAny, "", kUnlock}},
           ValueFilterRow{kSignedTypes, {"plus", {187}, kShift, "", kUnlock}},
           ValueFilterRow{kSignedTypes, {"equals", {187}, kNotShift, "", kLock}},
           ValueFilterRow{
               kSignedTypes,
               {"others", othersThan(kSignedEntry + std::vector{46, 32, 107, 109, 187}), kAny, "1", kLock}}));

const std::string kFloatTypes = "F4 F8";
const std::vector<int> kFloatEntry = kDigits + std::vector{8, 189, 190};

INSTANTIATE_TEST_SUITE_P(
    Floating, ItemValueKeys,
    Values(ValueFilterRow{kFloatTypes, {"digits, 8, 189, 190 with Shift", kFloatEntry, kShift, "1", kLock}},
           ValueFilterRow{kFloatTypes, {"digits, 8, 189, 190", kFloatEntry, kNotShift, "", kUnlock}},
           ValueFilterRow{kFloatTypes, {"46, 32, 107, 109, 110", {46, 32, 107, 109, 110}, kAny, "", kUnlock}},
           ValueFilterRow{kFloatTypes, {"E", {69}, kAny, "1", kUnlock}},
           ValueFilterRow{kFloatTypes, {"E", {69}, kAny, "x 1.5", kUnlock}},
           ValueFilterRow{kFloatTypes, {"E", {69}, kAny, "", kLock}},
           ValueFilterRow{kFloatTypes, {"E", {69}, kAny, "1 ", kLock}},
           ValueFilterRow{kFloatTypes, {"E", {69}, kAny, "1 -", kLock}},
           ValueFilterRow{kFloatTypes, {"E", {69}, kAny, "1e", kLock}},
           ValueFilterRow{kFloatTypes, {"plus", {187}, kShift, "", kUnlock}},
           ValueFilterRow{kFloatTypes, {"equals", {187}, kNotShift, "", kLock}},
           ValueFilterRow{kFloatTypes, {"Enter", {13}, kAny, "1", kLock}},
           ValueFilterRow{kFloatTypes,
                          {"others", othersThan(kFloatEntry + std::vector{46, 32, 107, 109, 110, 69, 187}),
                           kAny, "1", kLock}}));

const std::vector<int> kBooleanEntry{48, 49, 96, 97, 13};
const std::vector<int> kBooleanLetters{70, 65, 76, 83, 84, 82, 85, 69, 32};

INSTANTIATE_TEST_SUITE_P(
    Boolean, ItemValueKeys,
    Values(ValueFilterRow{"BOOLEAN", {"8, 46", {8, 46}, kAny, "", kUnlock}},
           ValueFilterRow{"BOOLEAN", {"0, 1, 13 with Shift", kBooleanEntry, kShift, "", kLock}},
           ValueFilterRow{"BOOLEAN", {"0, 1, 13", kBooleanEntry, kNotShift, "", kUnlock}},
           ValueFilterRow{"BOOLEAN", {"letters, blank", kBooleanLetters, kAny, "", kUnlock}},
           ValueFilterRow{"BOOLEAN",
                          {"others", othersThan(kBooleanEntry + kBooleanLetters + std::vector{8, 46}), kAny,
                           "", kLock}}));

INSTANTIATE_TEST_SUITE_P(Unfiltered, ItemValueKeys,
                         Values(ValueFilterRow{"A J X L", {"all", othersThan({}), kAny, "text", kLeave}}));

} // namespace
} // namespace zb
