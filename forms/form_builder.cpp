#include "forms/form_builder.h"

#include "forms/input_mode.h"
#include "forms/list_width_combo.h"
#include "platform/widgets/field_state.h"
#include "platform/widgets/shared_drawing.h"
#include "platform/widgets/twips.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSet>
#include <QStyleOptionButton>
#include <QTabBar>
#include <QWheelEvent>

#include <algorithm>
#include <vector>

namespace tolvinpt {
namespace {

// Switching the page is leaving the field: a click takes the focus, so that the field's leave check
// runs first and a refusal drops the click. The wheel, which would switch without a check, does nothing.
class TabStrip final : public QTabBar
{
public:
    using QTabBar::QTabBar;

protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

QWidget* createTabStrip(QWidget* parent, const QRect& rect)
{
    // The tab strip draws the tabs; a plain panel below them draws the page the frames lie on.
    auto* page = new QFrame(parent);
    page->setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    auto* tabs = new TabStrip(parent);
    setTabStop(tabs, false);
    tabs->setDrawBase(false);
    tabs->setExpanding(false);
    tabs->addTab(QStringLiteral("X"));
    const int tabHeight = tabs->sizeHint().height();
    tabs->removeTab(0);
    tabs->setGeometry(rect.x(), rect.y(), rect.width(), tabHeight);
    page->setGeometry(rect.adjusted(0, tabHeight - 1, 0, 0));
    return tabs;
}

QWidget* create(const ControlSpec& row, QWidget* parent)
{
    const QString caption = row.caption.toString();
    switch (row.kind) {
    case ControlKind::TextBox: {
        auto* edit = new QLineEdit(parent);
        if (row.maxLength > 0)
            edit->setMaxLength(row.maxLength);
        edit->setAlignment((row.state & design::Right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
        return edit;
    }
    case ControlKind::DropDownList:
    case ControlKind::Combo:
        return new ListWidthComboBox(parent);
    case ControlKind::EditableCombo: {
        auto* combo = new ListWidthComboBox(parent);
        combo->setEditable(true);
        combo->setInsertPolicy(QComboBox::NoInsert);
        combo->setCompleter(nullptr);
        return combo;
    }
    case ControlKind::CheckBox:
        return new QCheckBox(caption, parent);
    case ControlKind::OptionButton:
        return new QRadioButton(caption, parent);
    case ControlKind::Button: {
        auto* button = new SharedPaletteWidget<QPushButton, QStyleOptionButton>(caption, parent);
        button->setAutoDefault(false);
        button->setDefault(false);
        return button;
    }
    case ControlKind::Frame:
        if (caption.isEmpty()) {
            auto* frame = new QFrame(parent);
            frame->setFrameStyle(QFrame::Box | QFrame::Plain);
            return frame;
        }
        return new QGroupBox(caption, parent);
    case ControlKind::Label: {
        auto* label = new QLabel(caption, parent);
        label->setAlignment((row.state & design::Right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
        return label;
    }
    case ControlKind::Line: {
        auto* line = new QFrame(parent);
        line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
        return line;
    }
    case ControlKind::Picture:
        return new QLabel(parent);
    case ControlKind::TabStrip:
        return nullptr; // needs its rectangle: see createTabStrip
    }
    return nullptr;
}

// Grows a captioned control to its caption's size: height centred on the designed centre, width
// towards the side away from its alignment.
QRect fitCaption(const ControlSpec& row, QWidget* w, QRect rect)
{
    switch (row.kind) {
    case ControlKind::Label:
    case ControlKind::CheckBox:
    case ControlKind::OptionButton:
    case ControlKind::Button:
        break;
    default:
        return rect;
    }
    const QSize hint = w->sizeHint();
    if (hint.height() > rect.height()) {
        const int centre = rect.center().y();
        rect.setHeight(hint.height());
        rect.moveTop(centre - (hint.height() - 1) / 2);
    }
    if (row.kind != ControlKind::Button && hint.width() > rect.width()) {
        if (row.state & design::Right)
            rect.setLeft(rect.right() - hint.width() + 1);
        else
            rect.setWidth(hint.width());
    }
    return rect;
}

void applyState(const ControlSpec& row, QWidget* w)
{
    if (row.state & design::Hidden)
        w->hide();
    if (row.state & design::Grey)
        setGrey(w);
    if (row.state & design::Locked)
        setLocked(w, true);
    if (row.state & design::Disabled)
        w->setEnabled(false);
    if (row.state & design::Highlight)
        setCaptionColour(w, SystemColour::Highlight);
}

void linkTabChain(std::span<const ControlSpec> catalogue, const ControlMap& controls)
{
    std::vector<const ControlSpec*> chain;
    for (const auto& row : catalogue) {
        // The tab strip is never reached by Tab, but Tab from it goes on to the page it shows.
        const bool chained = takesFocus(row.kind) || row.kind == ControlKind::TabStrip;
        if (row.tabOrder > 0 && chained && !(row.state & (design::Hidden | design::Grey)))
            chain.push_back(&row);
    }
    std::stable_sort(chain.begin(), chain.end(),
                     [](const ControlSpec* a, const ControlSpec* b) { return a->tabOrder < b->tabOrder; });
    for (std::size_t i = 1; i < chain.size(); ++i)
        QWidget::setTabOrder(controls.value(chain[i - 1]->name.toString()),
                             controls.value(chain[i]->name.toString()));
}

} // namespace

bool takesFocus(ControlKind kind)
{
    switch (kind) {
    case ControlKind::TextBox:
    case ControlKind::DropDownList:
    case ControlKind::EditableCombo:
    case ControlKind::Combo:
    case ControlKind::CheckBox:
    case ControlKind::OptionButton:
    case ControlKind::Button:
        return true;
    default:
        return false;
    }
}

ControlMap buildControls(QWidget* client, std::span<const ControlSpec> catalogue, const Twips& twips)
{
    ControlMap controls;
    QSet<QString> highlighted;
    for (const auto& row : catalogue) {
        const QString name = row.name.toString();
        QWidget* parent = row.container.isEmpty() ? client : controls.value(row.container.toString());
        Q_ASSERT_X(parent, "buildControls", "a container must come before its contents");
        const QRect designed = twips.rect(row.pos.left, row.pos.top, row.pos.width, row.pos.height);

        QWidget* w =
            row.kind == ControlKind::TabStrip ? createTabStrip(parent, designed) : create(row, parent);
        w->setObjectName(name);
        if (!row.tooltip.isEmpty())
            w->setToolTip(row.tooltip.toString());
        applyInputMode(w, row.input);
        if (!takesFocus(row.kind) && row.kind != ControlKind::TabStrip)
            w->setFocusPolicy(Qt::NoFocus);
        if (row.kind != ControlKind::TabStrip)
            w->setGeometry(fitCaption(row, w, designed));
        // A frame's highlighted caption must not colour its contents.
        if (highlighted.contains(row.container.toString()) && !(row.state & design::Highlight))
            setCaptionColour(w, SystemColour::WindowText);
        if (row.state & design::Highlight)
            highlighted.insert(name);
        applyState(row, w);
        controls.insert(name, w);
    }
    linkTabChain(catalogue, controls);
    return controls;
}

} // namespace tolvinpt
