#include "editor/stream_function_list.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

using Names = std::vector<std::string>;

TEST(StreamFunctionList, IsReadWithAnySeparators) {
    EXPECT_EQ(streamFunctionList("S1F1, s1f2;\nS6F11W"), (Names{"S1F1", "S1F2", "S6F11"}));
    EXPECT_EQ(streamFunctionList("S1,F13"), Names{"S1F13"});
}

TEST(StreamFunctionList, APairAndARangeAreShort) {
    EXPECT_EQ(streamFunctionList("S1F1/F2, S2F33/34, S2F37-S2F38, S5F1/S5F2"),
              (Names{"S1F1", "S1F2", "S2F33", "S2F34", "S2F37", "S2F38", "S5F1", "S5F2"}));
    EXPECT_EQ(streamFunctionList("S2F33-36"), (Names{"S2F33", "S2F34", "S2F35", "S2F36"}));
    EXPECT_EQ(streamFunctionList("S6F11 \xE2\x80\x93 F12"), (Names{"S6F11", "S6F12"}));
}

TEST(StreamFunctionList, OtherTextsAreNone) {
    for (const char* text :
         {"",        " , ",      "S1F1 W .", "Establish S1F13", "S1F",    "SF1",  "S1F1111",
          "<L>",     "S1",       "F1",       "S1F1-",           "-S1F1",  "/F1",  "S1F1-S2F2",
          "S1F5-F1", "S1F1--F3", "S1F1 2",   "S1S2F1",          "S1F1Wx", "S1-F1"})
        EXPECT_FALSE(streamFunctionList(text)) << text;
}

} // namespace
} // namespace zb
