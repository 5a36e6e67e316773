#include "platform/text.h"
#include "platform/xml_document.h"
#include "support/tmd_reader.h"
#include "unit/model/generated_model.h"
#include "unit/outputs/model_desk.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

using test::ModelDesk;
using test::ModelMaker;
using test::TmdReader;

constexpr int kMessages = 8;

// Models with difficult texts, by seed.
class GeneratedTmd : public testing::TestWithParam<int> {
protected:
    GeneratedTmd() {
        maker_.fill(*desk_.app().TRModelStore, kMessages);
        for (int row = 0; row < kMessages; ++row) {
            if (row % 3 == 0)
                desk_.addHead("S" + std::to_string(row));
            desk_.addRow(maker_.anyText(), maker_.anyText(), maker_.anyText());
        }
    }

    // Names that users type in the dialogs, so that sections do not end at the first message.
    void giveNames() {
        int number = 0;
        for (const auto& record : desk_.app().TRModelStore->TRMessages()) {
            record->setName("T" + std::to_string(++number));
            record->setSECSMessage("M" + std::to_string(number / 2));
            for (const auto& item : record->TRItems())
                item->setName("I" + std::to_string(++number));
        }
    }

    void expectSoundDocument() {
        const XmlElement root = desk_.compose();
        const std::string bytes = xmlDocument(root);
        const TmdReader reader(bytes);
        ASSERT_EQ(reader.fault(), "") << bytes;
        for (int section = 1; section <= 4; ++section) {
            const std::string path = "/*/*[" + std::to_string(section) + "]";
            EXPECT_EQ(reader.value(path + "/@Count"), reader.value("count(" + path + "/*)")) << bytes;
        }
        expectSame(root, reader, "/*");
    }

    // The composed document is what the other library reads.
    void expectSame(const XmlElement& element, const TmdReader& reader, const std::string& path) {
        ASSERT_EQ(reader.value("name(" + path + ")"), element.name());
        // By position: a name may be invalid in the path language.
        for (std::size_t at = 0; at < element.attributes().size(); ++at) {
            const std::string attribute = path + "/@*[" + std::to_string(at + 1) + "]";
            EXPECT_EQ(reader.value("name(" + attribute + ")"), element.attributes()[at].name);
            EXPECT_EQ(reader.value(attribute), element.attributes()[at].value) << path;
        }
        EXPECT_EQ(reader.value(path + "/text()"), element.text()) << path;
        ASSERT_EQ(reader.value("count(" + path + "/*)"), std::to_string(element.children().size()));
        for (std::size_t child = 0; child < element.children().size(); ++child)
            expectSame(element.children()[child], reader, path + "/*[" + std::to_string(child + 1) + "]");
    }

    ModelMaker maker_{static_cast<std::uint32_t>(GetParam())};
    ModelDesk desk_{GetParam() % 2 + 1};
};

TEST_P(GeneratedTmd, OfAnyTextIsSound) {
    expectSoundDocument();
}

TEST_P(GeneratedTmd, OfOrdinaryNamesIsSound) {
    giveNames();
    expectSoundDocument();
}

INSTANTIATE_TEST_SUITE_P(Seeds, GeneratedTmd, testing::Range(1, 61));

} // namespace
} // namespace zb
