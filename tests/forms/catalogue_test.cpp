// Every catalogued control is built as catalogued: name, kind, container, caption, tooltip, limit,
// alignment, input method, design state and place.
#include "form_fixture.h"

#include "forms/form_builder.h"
#include "platform/field_state.h"
#include "platform/twips.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSet>

using namespace tolvinpt;

namespace {

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

// Whether the widget is of the catalogued kind, with the kind's settings.
bool isOfKind(const ControlSpec& spec, QWidget* w)
{
    const auto* combo = qobject_cast<QComboBox*>(w);
    const auto* button = qobject_cast<QPushButton*>(w);
    switch (spec.kind) {
    case ControlKind::TextBox:
        return qobject_cast<QLineEdit*>(w);
    case ControlKind::DropDownList:
    case ControlKind::Combo:
        return combo && !combo->isEditable();
    case ControlKind::EditableCombo:
        return combo && combo->isEditable() && combo->insertPolicy() == QComboBox::NoInsert && !combo->completer();
    case ControlKind::CheckBox:
        return qobject_cast<QCheckBox*>(w);
    case ControlKind::OptionButton:
        return qobject_cast<QRadioButton*>(w);
    case ControlKind::Button: // Enter never presses a button
        return button && !button->autoDefault() && !button->isDefault();
    case ControlKind::Frame:
        return spec.caption.isEmpty() ? qobject_cast<QFrame*>(w) && !qobject_cast<QGroupBox*>(w)
                                      : qobject_cast<QGroupBox*>(w) != nullptr;
    case ControlKind::Label:
    case ControlKind::Picture:
        return qobject_cast<QLabel*>(w);
    case ControlKind::TabStrip:
        return qobject_cast<QTabBar*>(w);
    case ControlKind::Line:
        return qobject_cast<QFrame*>(w)->frameShape() == QFrame::HLine;
    }
    return false;
}

void expectInputMode(const ControlSpec& spec, QWidget* w)
{
    auto* combo = qobject_cast<QComboBox*>(w);
    const bool imeOn = w->testAttribute(Qt::WA_InputMethodEnabled) ||
                       (combo && combo->lineEdit() && combo->lineEdit()->testAttribute(Qt::WA_InputMethodEnabled));
    EXPECT_EQ(bool(w->inputMethodHints() & Qt::ImhPreferLatin), spec.input == InputMode::Off);
    EXPECT_TRUE(spec.input != InputMode::Hiragana || imeOn);
    EXPECT_TRUE(spec.input != InputMode::Disabled || !imeOn);
}

void expectDesignState(const ControlSpec& spec, QWidget* w)
{
    EXPECT_EQ(w->isHidden(), bool(spec.state & design::Hidden));
    EXPECT_EQ(w->isEnabled(), !(spec.state & design::Disabled));
    EXPECT_EQ(isLocked(w), bool(spec.state & (design::Grey | design::Locked)));
    if (spec.state & design::Grey) {
        EXPECT_FALSE(isTabStop(w));
        EXPECT_EQ(w->palette().color(QPalette::Base), QApplication::palette().color(QPalette::Button));
    } else {
        EXPECT_EQ(isTabStop(w), takesFocus(spec.kind));
    }
    // Also: a highlighted frame caption does not colour the frame's contents.
    const QColor highlight = QApplication::palette().color(QPalette::Highlight);
    EXPECT_EQ(w->palette().color(QPalette::WindowText) == highlight, bool(spec.state & design::Highlight));
}

} // namespace

TEST(CatalogueTest, EveryControlIsBuiltAsCatalogued)
{
    QWidget client;
    const Twips twips = Twips::forScreenOf(&client);
    const ControlMap controls = buildControls(&client, frmdata::controls(), twips);
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
        EXPECT_TRUE(isOfKind(spec, w));
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
