#include "controls/desktop.h"
#include "controls/list.h"
#include "desktop/binders/binder.h"
#include "desktop/colors.h"
#include "desktop/models/list_model.h"
#include "desktop/models/node_tree_view.h"
#include "editor/frm_sec_editor.h"
#include "modeler/model_nodes.h"
#include "screen/support/palettes.h"
#include "screen/support/program_on_screen.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QImage>
#include <QTreeView>

#include <algorithm>
#include <cmath>

namespace zb::test {
namespace {

constexpr double kReadable = 4.5;
constexpr int kStroke = 20; // the least number of pixels that the text of a row covers

double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& left, const QColor& right) {
    const double one = luminance(left);
    const double other = luminance(right);
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

/// The pixels of a picture that have exactly one colour.
int pixelsOf(const QImage& picture, const QColor& color) {
    int found = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            found += picture.pixel(x, y) == color.rgb() ? 1 : 0;
    }
    return found;
}

struct Colors : ::testing::TestWithParam<Shade> {
    Colors() {
        dress(*qApp, GetParam());
        program.application.start("");
        program.application.showEditor();
        program.application.showModeler();
        program.settle();
    }
    ~Colors() override { dress(*qApp, Shade::Light); }
    Colors(const Colors&) = delete;
    Colors& operator=(const Colors&) = delete;

    /// The widget as it is seen, with glyphs that are not blended with the background.
    QImage seen(QWidget& widget) {
        QFont font = widget.font();
        font.setStyleStrategy(QFont::NoAntialias);
        widget.setFont(font);
        program.settle();
        return widget.grab().toImage();
    }

    QColor base() const { return QGuiApplication::palette().color(QPalette::Base); }

    /// A light palette shows the colour itself, a dark one the colour of that hue which can be read.
    QColor expected(const Color& text, const QColor& back) const {
        if (GetParam() == Shade::Light)
            return toQt(text);
        const QColor shown = readable(toQt(text), back);
        EXPECT_GE(contrast(shown, back), kReadable);
        EXPECT_NEAR(shown.hslHueF(), toQt(text).hslHueF(), 0.02);
        return shown;
    }

    QImage nodeOf(const Color& text, const OptionalColor& back) {
        frmSECSEditor& editor = program.application.frmSECSEditor;
        editor.tvwEdit.nodes().clear();
        Node& node = editor.tvwEdit.nodes().add(nullptr, Relation::Last, "MMMMM Equipment S1F1 W");
        node.setForeColor(text);
        node.setBackColor(back);
        return seen(program.widget<NodeTreeView>(editor, "tvwEdit"));
    }

    ProgramOnScreen program{"/"};
};

TEST_P(Colors, OrdinaryTextOfTheEditorIsBlue) {
    EXPECT_EQ(kEditorForeColor, (Color{16, 28, 177}));
    EXPECT_GT(pixelsOf(nodeOf(kEditorForeColor, {}), expected(kEditorForeColor, base())), kStroke);
}

TEST_P(Colors, AnErrorMarkIsRedOnPink) {
    const QColor pink = toQt(kErrorBackColor);
    const QImage picture = nodeOf(kErrorForeColor, kErrorBackColor);
    EXPECT_GT(pixelsOf(picture, pink), 100);
    EXPECT_GT(pixelsOf(picture, expected(kErrorForeColor, pink)), kStroke);
}

TEST_P(Colors, AFaultyNodeOfTheModelerIsRed) {
    NodeTree& tree = program.application.frmTRModeler.tvwRcvTRMsg.nodes();
    tree.add(nullptr, Relation::Last, "MMMMM message").setForeColor(kErrorForeColor);
    const QImage picture =
        seen(program.widget<NodeTreeView>(program.application.frmTRModeler, "tvwRcvTRMsg"));
    EXPECT_GT(pixelsOf(picture, expected(kErrorForeColor, base())), kStroke);
}

TEST_P(Colors, ARootOfTheModelerIsBlue) {
    NodeTree& tree = program.application.frmTRModeler.tvwRcvTRMsg.nodes();
    tree.add(nullptr, Relation::Last, "MMMMM model").setForeColor(kModelRootColor);
    const QImage picture =
        seen(program.widget<NodeTreeView>(program.application.frmTRModeler, "tvwRcvTRMsg"));
    EXPECT_GT(pixelsOf(picture, expected(kModelRootColor, base())), kStroke);
}

TEST_P(Colors, AFaultyRowOfAListIsRed) {
    List& table = program.application.frmTRModeler.lvwTRObject;
    table.addColumn("TRMessage", 1800);
    table.add("MMMMM row").setForeColor(kErrorForeColor);
    const QImage picture = seen(program.widget<QTreeView>(program.application.frmTRModeler, "lvwTRObject"));
    EXPECT_GT(pixelsOf(picture, expected(kErrorForeColor, base())), kStroke);
}

TEST_P(Colors, TextWithoutAColourIsThePalettes) {
    EXPECT_GT(pixelsOf(nodeOf(Color{}, {}), program.screen.mainWindow()->palette().color(QPalette::Text)),
              kStroke);
}

TEST(HintColor, IsThatOfThePaletteWhereItCanBeRead) {
    QPalette light(Qt::lightGray);
    light.setColor(QPalette::Base, Qt::white);
    light.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
    EXPECT_EQ(hintColor(light), QColor(0, 0, 0, 128));
}

TEST(HintColor, CanBeReadInADarkThemeThatDoesNotNameIt) {
    QPalette dark(Qt::darkGray);
    dark.setColor(QPalette::Base, QColor(35, 38, 41));
    dark.setColor(QPalette::Text, QColor(239, 240, 241));
    dark.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
    EXPECT_GE(contrast(hintColor(dark), QColor(35, 38, 41)), kReadable);
}

INSTANTIATE_TEST_SUITE_P(Palettes, Colors, ::testing::Values(Shade::Light, Shade::Dark),
                         [](const auto& tested) { return tested.param == Shade::Light ? "Light" : "Dark"; });

} // namespace
} // namespace zb::test
