// Every catalogued control is built as catalogued: name, kind, container, caption, tooltip, limit,
// alignment, input method, design state and place.
#include "forms/form_builder.h"
#include "forms/frmData/catalogue.h"
#include "platform/field_state.h"
#include "platform/twips.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSet>
#include <QTabBar>

#include "qt_print.h"

#include <gtest/gtest.h>

using namespace tolvinpt;
using namespace Qt::StringLiterals;

namespace {

class CatalogueTest : public testing::Test
{
protected:
    CatalogueTest() : twips(Twips::forScreenOf(&client))
    {
        controls = buildControls(&client, frmdata::controls(), twips);
    }

    QWidget client;
    Twips twips;
    ControlMap controls;
};

QString captionOf(QWidget* w)
{
    if (auto* button = qobject_cast<QAbstractButton*>(w))
        return button->text();
    if (auto* label = qobject_cast<QLabel*>(w))
        return label->text();
    if (auto* group = qobject_cast<QGroupBox*>(w))
        return group->title();
    return {};
}

void expectKind(const ControlSpec& spec, QWidget* w)
{
    const auto* combo = qobject_cast<QComboBox*>(w);
    switch (spec.kind) {
    case ControlKind::TextBox:
        EXPECT_TRUE(qobject_cast<QLineEdit*>(w));
        break;
    case ControlKind::DropDownList:
    case ControlKind::Combo:
        ASSERT_TRUE(combo);
        EXPECT_FALSE(combo->isEditable());
        break;
    case ControlKind::EditableCombo:
        ASSERT_TRUE(combo);
        EXPECT_TRUE(combo->isEditable());
        EXPECT_EQ(combo->insertPolicy(), QComboBox::NoInsert);
        EXPECT_EQ(combo->completer(), nullptr);
        break;
    case ControlKind::CheckBox:
        EXPECT_TRUE(qobject_cast<QCheckBox*>(w));
        break;
    case ControlKind::OptionButton:
        EXPECT_TRUE(qobject_cast<QRadioButton*>(w));
        break;
    case ControlKind::Button: {
        auto* button = qobject_cast<QPushButton*>(w);
        ASSERT_TRUE(button);
        EXPECT_FALSE(button->autoDefault()); // Enter never presses a button
        EXPECT_FALSE(button->isDefault());
        break;
    }
    case ControlKind::Frame:
        EXPECT_EQ(qobject_cast<QGroupBox*>(w) != nullptr, !spec.caption.isEmpty());
        EXPECT_TRUE(qobject_cast<QGroupBox*>(w) || qobject_cast<QFrame*>(w));
        break;
    case ControlKind::Label:
    case ControlKind::Picture:
        EXPECT_TRUE(qobject_cast<QLabel*>(w));
        break;
    case ControlKind::TabStrip:
        EXPECT_TRUE(qobject_cast<QTabBar*>(w));
        break;
    case ControlKind::Line:
        EXPECT_EQ(qobject_cast<QFrame*>(w)->frameShape(), QFrame::HLine);
        break;
    }
}

void expectInputMode(const ControlSpec& spec, QWidget* w)
{
    const bool imeOn = w->testAttribute(Qt::WA_InputMethodEnabled);
    switch (spec.input) {
    case InputMode::Default:
        break;
    case InputMode::Off:
        EXPECT_TRUE(w->inputMethodHints() & Qt::ImhPreferLatin);
        break;
    case InputMode::Hiragana:
        EXPECT_TRUE(imeOn);
        EXPECT_FALSE(w->inputMethodHints() & Qt::ImhPreferLatin);
        break;
    case InputMode::Disabled:
        EXPECT_FALSE(imeOn);
        if (auto* combo = qobject_cast<QComboBox*>(w)) {
            EXPECT_FALSE(combo->lineEdit()->testAttribute(Qt::WA_InputMethodEnabled));
        }
        break;
    }
}

void expectDesignState(const ControlSpec& spec, QWidget* w)
{
    EXPECT_EQ(w->isHidden(), bool(spec.state & design::Hidden));
    EXPECT_EQ(w->isEnabled(), !(spec.state & design::Disabled));
    EXPECT_EQ(isLocked(w), bool(spec.state & (design::Grey | design::Locked)));
    if (spec.state & design::Grey) {
        EXPECT_FALSE(isTabStop(w));
        EXPECT_EQ(w->palette().color(QPalette::Base), QApplication::palette().color(QPalette::Button));
    } else if (takesFocus(spec.kind)) {
        EXPECT_TRUE(isTabStop(w));
    } else {
        EXPECT_EQ(w->focusPolicy(), Qt::NoFocus);
    }
    const QColor highlight = QApplication::palette().color(QPalette::Highlight);
    EXPECT_EQ(w->palette().color(QPalette::WindowText) == highlight, bool(spec.state & design::Highlight));
}

} // namespace

TEST_F(CatalogueTest, EveryControlIsBuiltAsCatalogued)
{
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
        expectKind(spec, w);
        EXPECT_EQ(captionOf(w), spec.caption.toString());
        EXPECT_EQ(w->toolTip(), spec.tooltip.toString());
        if (auto* edit = qobject_cast<QLineEdit*>(w)) {
            EXPECT_EQ(edit->maxLength(), spec.maxLength > 0 ? spec.maxLength : 32767);
            EXPECT_EQ(edit->alignment() & Qt::AlignHorizontal_Mask,
                      spec.state & design::Right ? Qt::AlignRight : Qt::AlignLeft);
        }
        expectInputMode(spec, w);
        expectDesignState(spec, w);

        // Placed where designed; captioned controls may grow around their design so nothing is clipped.
        const QRect designed = twips.rect(spec.pos.left, spec.pos.top, spec.pos.width, spec.pos.height);
        if (spec.kind == ControlKind::TabStrip) {
            EXPECT_EQ(w->geometry().topLeft(), designed.topLeft());
        } else {
            EXPECT_TRUE(w->geometry().contains(designed));
        }
        if (auto* label = qobject_cast<QLabel*>(w); label && !label->text().isEmpty()) {
            EXPECT_GE(w->width(), label->sizeHint().width());
        }
    }
    EXPECT_EQ(names.size(), controls.size());
}

TEST_F(CatalogueTest, ArraysAndHighlightedLabelsAreNamedForOtherCode)
{
    // Other code reaches these by name: the arrays with their index, the labels recoloured by record state.
    for (const char16_t* name :
         {u"txtDate(0)", u"txtDate(1)", u"txtDate(2)", u"optQuantity(1)", u"optQuantity(2)",
          u"optQuantity(3)", u"Label5(0)", u"Label5(1)", u"Label7(0)", u"Label7(1)", u"Label14(0)",
          u"Label14(1)", u"Label16(0)", u"Label16(1)"})
        EXPECT_TRUE(controls.contains(QString::fromUtf16(name))) << QString::fromUtf16(name).toStdString();
    for (const char16_t* name :
         {u"Label9", u"Label10", u"Label13", u"Label18", u"Label20", u"Label23", u"Label24"})
        EXPECT_TRUE(qobject_cast<QLabel*>(controls.value(QString::fromUtf16(name))));
}

TEST_F(CatalogueTest, FrameCaptionColourStaysOnTheFrame)
{
    const QColor highlight = QApplication::palette().color(QPalette::Highlight);
    EXPECT_EQ(controls.value(u"fraQuantity"_s)->palette().color(QPalette::WindowText), highlight);
    EXPECT_NE(controls.value(u"optQuantity(1)"_s)->palette().color(QPalette::WindowText), highlight);
}
