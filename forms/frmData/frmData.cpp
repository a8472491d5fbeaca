#include "forms/frmData/frmData.h"

#include "forms/form_font.h"
#include "forms/frmData/catalogue.h"
#include "forms/frmData/hard_copy.h"
#include "forms/frmData/package_editor.h"
#include "forms/frmData/record_list_menu.h"
#include "forms/keyed_toolbar.h"
#include "forms/menu_builder.h"
#include "platform/widgets/guarded.h"
#include "platform/widgets/twips.h"
#include "platform/widgets/validate_on_leave.h"
#include "platform/widgets/window_shortcuts.h"

#include <QKeyEvent>
#include <QMenuBar>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace tolvinpt {

frmData::frmData(const CompanySettings& company, QWidget* parent) : QDialog(parent), m_company(company)
{
    setObjectName(QStringLiteral("frmData"));
    setWindowTitle(frmdata::Caption.toString());
    setFont(formFont());
    buildChrome();
    m_leave = new ValidateOnLeave(this);
    connectChangeFlags();
    installFieldRules();
    connectCommands();
    frmdata::connectPackageEditor(*this);
    frmdata::connectHardCopy(*this);
    putWindowShortcutsFirst(this); // Ctrl+E and the others work from inside a text field too
    Form_Load();
}

frmData::~frmData() = default;

void frmData::buildChrome()
{
    const Twips twips = Twips::forScreenOf(this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    auto* bar = new QMenuBar(this);
    m_menuItems = buildMenus(bar, frmdata::menus());
    layout->setMenuBar(bar);

    auto* client = new QWidget(this);
    client->setFixedSize(twips.size(frmdata::ClientWidth, frmdata::ClientHeight));
    layout->addWidget(client);
    m_controls = buildControls(client, frmdata::controls(), twips);

    // Both toolbars sit along the top of the client area; one is shown at a time.
    m_toolbar1 = new KeyedToolBar(QStringLiteral("Toolbar1"), frmdata::toolbar1(), client);
    m_toolbar2 = new KeyedToolBar(QStringLiteral("Toolbar2"), frmdata::toolbar2(), client);
    for (KeyedToolBar* toolbar : {m_toolbar1, m_toolbar2})
        toolbar->setGeometry(0, 0, client->width(), toolbar->sizeHint().height());
    m_toolbar2->hide();

    m_recordList = new RecordListMenu(this);
    m_recordList->setObjectName(QStringLiteral("mnuRecordList"));
    m_toolbar1->button(frmdata::RecordListKey.toString())->setMenu(m_recordList);

    auto* tabs = control<QTabBar>(QStringLiteral("TabStrip1"));
    for (const auto& tab : frmdata::infoTabs()) {
        const int index = tabs->addTab(tab.key.toString());
        tabs->setTabData(index, tab.key.toString());
        tabs->setTabToolTip(index, tab.tooltip.toString());
    }
    // The pages follow the selected tab from the start.
    connect(tabs, &QTabBar::currentChanged, this, guarded(this, &frmData::TabStrip1_Click));
    TabStrip1_Click();
}

void frmData::keyPressEvent(QKeyEvent* event)
{
    guardedCall([&] { escapeClosesNothing(event); });
}

void frmData::escapeClosesNothing(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier) {
        event->accept();
        return;
    }
    QDialog::keyPressEvent(event);
}

void frmData::showModeControls(bool newRecord)
{
    m_toolbar1->setVisible(!newRecord);
    menuItem(QStringLiteral("mnuData"))->setVisible(!newRecord);
    m_toolbar2->setVisible(newRecord);
    menuItem(QStringLiteral("mnuNewData"))->setVisible(newRecord);
}

void frmData::TabStrip1_Click()
{
    const auto* tabs = control<QTabBar>(QStringLiteral("TabStrip1"));
    const QString key = tabs->tabData(tabs->currentIndex()).toString();
    for (const auto& tab : frmdata::infoTabs()) {
        if (tab.key != key)
            continue;
        for (const auto& other : frmdata::infoTabs()) {
            QWidget* page = control(other.page.toString());
            page->setVisible(other.key == key);
            if (other.key == key)
                page->raise();
        }
    }
}

} // namespace tolvinpt
