// Every catalogued control is built as catalogued: name, kind, container, caption, tooltip, limit,
// alignment, input method, design state and place.
#include "form_fixture.h"

#include "forms/form_builder.h"
#include "platform/field_state.h"
#include "platform/twips.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSet>

using namespace tolvinpt;

namespace {

// The class each kind is built as, in the order of ControlKind; a frame with a caption is a QGroupBox.
// clang-format off
constexpr const char* ClassOf[] = {"QLineEdit", "tolvinpt::ListWidthComboBox", "tolvinpt::ListWidthComboBox",
    "tolvinpt::ListWidthComboBox", "QCheckBox", "QRadioButton", "QPushButton", "QFrame", "QLabel", "QTabBar", "QFrame", "QLabel"};
// clang-format on

} // namespace

TEST(CatalogueTest, EveryControlIsBuiltAsCatalogued)
{
    QWidget client;
    const Twips twips = Twips::forScreenOf(&client);
    const ControlMap controls = buildControls(&client, frmdata::controls(), twips);
    const QPalette palette = QApplication::palette();
    QSet<QString> names;
    for (const auto& spec : frmdata::controls()) {
        const QString name = spec.name.toString();
        SCOPED_TRACE(name.toStdString());
        EXPECT_FALSE(names.contains(name)) << "catalogued twice";
        names.insert(name);

        QWidget* w = controls.value(name);
        ASSERT_TRUE(w);
        EXPECT_EQ(w->objectName(), name);
        EXPECT_EQ(w->parentWidget()->objectName(), spec.container.toString());
        const bool group = spec.kind == ControlKind::Frame && !spec.caption.isEmpty();
        EXPECT_STREQ(w->metaObject()->className(), group ? "QGroupBox" : ClassOf[int(spec.kind)]);
        auto* combo = qobject_cast<QComboBox*>(w);
        EXPECT_EQ(combo && combo->isEditable(), spec.kind == ControlKind::EditableCombo);
        EXPECT_TRUE(!combo || !combo->isEditable() ||
                    (combo->insertPolicy() == QComboBox::NoInsert && !combo->completer()));
        auto* button = qobject_cast<QPushButton*>(w);
        EXPECT_TRUE(!button || (!button->autoDefault() && !button->isDefault()))
            << "Enter never presses a button";
        EXPECT_TRUE(spec.kind != ControlKind::Line ||
                    qobject_cast<QFrame*>(w)->frameShape() == QFrame::HLine);
        EXPECT_EQ(w->property(qobject_cast<QGroupBox*>(w) ? "title" : "text").toString(),
                  spec.caption.toString());
        EXPECT_EQ(w->toolTip(), spec.tooltip.toString());
        if (auto* edit = qobject_cast<QLineEdit*>(w)) {
            EXPECT_EQ(edit->maxLength(), spec.maxLength > 0 ? spec.maxLength : 32767);
            EXPECT_EQ(edit->alignment() & Qt::AlignHorizontal_Mask,
                      spec.state & design::Right ? Qt::AlignRight : Qt::AlignLeft);
        }
        // Input method, design state; a highlighted frame caption does not colour the frame's contents.
        const bool imeOn =
            w->testAttribute(Qt::WA_InputMethodEnabled) ||
            (combo && combo->lineEdit() && combo->lineEdit()->testAttribute(Qt::WA_InputMethodEnabled));
        EXPECT_EQ(bool(w->inputMethodHints() & Qt::ImhPreferLatin), spec.input == InputMode::Off);
        EXPECT_TRUE(spec.input != InputMode::Hiragana || imeOn);
        EXPECT_TRUE(spec.input != InputMode::Disabled || !imeOn);
        EXPECT_EQ(w->isHidden(), bool(spec.state & design::Hidden));
        EXPECT_EQ(w->isEnabled(), !(spec.state & design::Disabled));
        EXPECT_EQ(isLocked(w), bool(spec.state & (design::Grey | design::Locked)));
        EXPECT_EQ(isTabStop(w), takesFocus(spec.kind) && !(spec.state & design::Grey));
        EXPECT_TRUE(!(spec.state & design::Grey) ||
                    w->palette().color(QPalette::Base) == palette.color(QPalette::Button));
        EXPECT_EQ(w->palette().color(QPalette::WindowText) == palette.color(QPalette::Highlight),
                  bool(spec.state & design::Highlight));

        // Placed where designed; captioned controls may grow around their design so nothing is clipped.
        const QRect designed = twips.rect(spec.pos.left, spec.pos.top, spec.pos.width, spec.pos.height);
        if (spec.kind == ControlKind::TabStrip)
            EXPECT_EQ(w->geometry().topLeft(), designed.topLeft());
        else
            EXPECT_TRUE(w->geometry().contains(designed));
        if (auto* label = qobject_cast<QLabel*>(w)) {
            EXPECT_GE(w->width(), label->text().isEmpty() ? 0 : label->sizeHint().width());
        }
    }
    EXPECT_EQ(names.size(), controls.size());
}
