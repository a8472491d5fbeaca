// The per-package quantity editor: its controls, load, size and closing.
#include "forms/frmQuantity/frmQuantity.h"

#include "forms/form_font.h"
#include "forms/frmData/number_rules.h"
#include "forms/frmQuantity/package_grid.h"
#include "forms/frmQuantity/package_model.h"
#include "forms/keyed_toolbar.h"
#include "platform/values/number_text.h"
#include "platform/widgets/guarded.h"
#include "platform/widgets/messages.h"
#include "platform/widgets/twips.h"
#include "platform/widgets/validate_on_leave.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace tolvinpt {
namespace {

constexpr QStringView Caption = u"個別 入数情報";
// Inner size and the toolbar's height, in twips; the controls stand below the toolbar.
constexpr int ClientWidth = 3135;
constexpr int ClientHeight = 6450;
constexpr int ToolbarHeight = 360;
constexpr int PictureTop = 1440 - ToolbarHeight;

using K = ControlKind;
using I = InputMode;
using namespace design;

// clang-format off
constexpr ControlSpec Controls[] = {
    // name           kind           in    caption          tooltip max input        state         left  top   width height tab marks
    {u"Label1",       K::Label,      u"",  u"納入数量 ：",  u"",    0,  I::Default,  0,            {60,   0,    1000, 315},  0,  0},
    {u"txtDelivery",  K::TextBox,    u"",  u"",             u"",    0,  I::Disabled, Grey | Right, {1080, 0,    2025, 315},  1,  0},
    {u"Label2",       K::Label,      u"",  u"均等割数 ：",  u"",    0,  I::Default,  0,            {60,   360,  1000, 315},  0,  0},
    {u"txtEquality",  K::TextBox,    u"",  u"",             u"",    13, I::Disabled, Right,        {1080, 360,  2025, 315},  2,  0},
    {u"Label3",       K::Label,      u"",  u"合計入数 ：",  u"",    0,  I::Default,  0,            {60,   720,  1000, 315},  0,  0},
    {u"txtTotal",     K::TextBox,    u"",  u"",             u"",    0,  I::Disabled, Grey | Right, {1080, 720,  2025, 315},  3,  0},
    {u"Picture1",     K::Picture,    u"",  u"",             u"",    0,  I::Default,  0,            {0, PictureTop, 3135, 5010}, 0,  0},
};
// clang-format on

constexpr QStringView CloseKey = u"戻る";
constexpr QStringView EqualSplitKey = u"均等割り";
constexpr ToolButtonSpec Toolbar1[] = {
    {CloseKey, CloseKey, u"Back", false},
    {EqualSplitKey, EqualSplitKey, u"Macro", false},
};

const Message SaveQuestion{u"変更内容を保存しますか"_s, u"[入数情報] - 保存確認"_s, QMessageBox::Question,
                           QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes};
constexpr QStringView TotalMismatch = u"入数の合計が納入数量と一致しません";
constexpr QStringView TotalMismatchTitle = u"入力ｴﾗｰ";

} // namespace

// The rules of txtEquality, the total and the equal split: forms/frmQuantity/quantity_rules.cpp.

frmQuantity::frmQuantity(const PackageQuantities& packages, QWidget* parent) : QDialog(parent)
{
    setObjectName(u"frmQuantity"_s);
    setWindowTitle(Caption.toString());
    setFont(formFont());
    buildChrome();
    m_leave = new ValidateOnLeave(this);
    installFieldRules();
    connect(m_toolbar, &KeyedToolBar::buttonClicked, this, guarded(this, &frmQuantity::Toolbar1_ButtonClick));
    Form_Load(packages);
}

frmQuantity::~frmQuantity() = default;

void frmQuantity::buildChrome()
{
    const Twips twips = Twips::forScreenOf(this);
    m_toolbar = new KeyedToolBar(u"Toolbar1"_s, Toolbar1, this);
    m_toolbar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);

    m_client = new QWidget(this);
    m_controls = buildControls(m_client, Controls, twips);

    m_model = new PackageModel(this);
    m_grid = new PackageGrid(m_model, control(u"Picture1"_s));
    m_grid->setObjectName(u"spdQuantity"_s);
    m_controls.insert(m_grid->objectName(), m_grid);
    QWidget::setTabOrder(control(u"txtEquality"_s), m_grid);
    m_grid->setFocus();

    const int toolbar = m_toolbar->sizeHint().height();
    resize(twips.x(ClientWidth), toolbar + twips.y(ClientHeight - ToolbarHeight));
    // The fields and a few package rows stay in sight.
    setMinimumSize(twips.x(ClientWidth), toolbar + twips.y(PictureTop + 1500));
}

void frmQuantity::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    guardedCall([this] { Form_Resize(); });
}

void frmQuantity::Form_Resize()
{
    const int toolbar = m_toolbar->sizeHint().height();
    m_toolbar->setGeometry(0, 0, width(), toolbar);
    m_client->setGeometry(0, toolbar, width(), height() - toolbar);
    QWidget* picture = control(u"Picture1"_s);
    picture->setGeometry(0, picture->y(), m_client->width(), std::max(0, m_client->height() - picture->y()));
    m_grid->setGeometry(picture->rect());
}

void frmQuantity::Form_Load(const PackageQuantities& packages)
{
    control<QLineEdit>(u"txtTotal"_s)->setText(formatFixed(Decimal(), frmdata::QuantityDecimals));
    for (int row = 0; row < MaxPackages; ++row)
        m_model->setValue(row, packages[std::size_t(row)]);
    bGridChanged = false;
}

void frmQuantity::spdQuantity_Change(const QModelIndex& topLeft, const QModelIndex& bottomRight)
{
    if (topLeft.row() <= PackageModel::SumRow && PackageModel::SumRow <= bottomRight.row())
        control<QLineEdit>(u"txtTotal"_s)->setText(m_model->index(PackageModel::SumRow, 0).data().toString());
    bGridChanged = true;
}

void frmQuantity::Toolbar1_ButtonClick(const QString& key)
{
    if (key == CloseKey)
        closeDialog();
    else if (key == EqualSplitKey)
        equalSplit();
}

void frmQuantity::reject()
{
    guardedCall([this] { closeDialog(); });
}

void frmQuantity::closeDialog()
{
    if (!bGridChanged) {
        done(Rejected);
        return;
    }
    switch (messages().show(SaveQuestion)) {
    case QMessageBox::Yes:
        break;
    case QMessageBox::No:
        done(Rejected);
        return;
    default:
        return;
    }
    const auto read = [this](QStringView name) {
        return leadingNumber(control<QLineEdit>(name.toString())->text());
    };
    if (read(u"txtTotal") != read(u"txtDelivery")) {
        showExclamation(TotalMismatch.toString(), TotalMismatchTitle.toString());
        return;
    }
    acceptPackages();
    done(Accepted);
}

// An empty row in the middle (a pasted blank line, a cell emptied before the grid was left) would end
// the packages there while the total counted the rows after it: the packages close up instead.
void frmQuantity::acceptPackages()
{
    m_packages.fill(Currency());
    std::size_t count = 0;
    for (const Currency value : m_model->values()) {
        if (!value.isZero())
            m_packages[count++] = value;
    }
    m_accepted = true;
}

} // namespace tolvinpt
