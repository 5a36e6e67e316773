#include "generate/text_template.h"

#include <gtest/gtest.h>

namespace zb::generate {
namespace {

std::string filledIn(std::string_view text, const TemplateData& data) {
    std::string result;
    TextTemplate(text).append(result, data);
    return result;
}

TEST(TextTemplate, ReplacesNames) {
    TemplateData data;
    data.set("type", "Wafer");
    EXPECT_EQ(filledIn("struct ${type} {};\n// $type } ${", data), "struct Wafer {};\n// $type } ${");
}

TEST(TextTemplate, DoesNotFillInWhatWasFilledIn) {
    TemplateData data;
    data.set("type", "${other}\n//% end\n");
    EXPECT_EQ(filledIn("<${type}>", data), "<${other}\n//% end\n>");
}

TEST(TextTemplate, RepeatsABlockForEachElement) {
    TemplateData data;
    data.set("name", "all");
    data.add("fields").set("field", "a");
    data.add("fields").set("field", "b");
    EXPECT_EQ(
        filledIn("x\n  //% each fields\n  ${name}.${field}\n//% if more\n,\n//% end\n  //% end\ny\n", data),
        "x\n  all.a\n,\n  all.b\ny\n");
}

TEST(TextTemplate, AsksForTextsAndLists) {
    TemplateData data;
    data.setFlag("yes", true);
    data.setFlag("no", false);
    data.addList("empty");
    EXPECT_EQ(filledIn("//% if yes\n1\n//% else\n2\n//% end\n//% if no\n3\n//% else\n4\n//% end\n", data),
              "1\n4\n");
    EXPECT_EQ(filledIn("//% if empty\n1\n//% else\n2\n//% end\n//% each empty\n3\n//% end\n", data), "2\n");
}

TEST(TextTemplate, RefusesWhatItCannotFill) {
    const TemplateData data;
    EXPECT_THROW(filledIn("${unknown}", data), TemplateFault);
    EXPECT_THROW(filledIn("//% each unknown\n//% end\n", data), TemplateFault);
    EXPECT_THROW(filledIn("//% if unknown\n//% end\n", data), TemplateFault);
    EXPECT_THROW(TextTemplate("//% if a\n"), TemplateFault);
    EXPECT_THROW(TextTemplate("//% end\n"), TemplateFault);
    EXPECT_THROW(TextTemplate("//% repeat a\n//% end\n"), TemplateFault);
}

} // namespace
} // namespace zb::generate
