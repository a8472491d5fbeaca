#pragma once

// The per-package quantity editor: the delivery quantity broken down into up to 100 packages, typed into
// a one-column grid or filled by an equal split, accepted only when the packages add up to the delivery
// quantity. The entry form opens it (forms/frmData/package_editor.h) and takes its packages back.

#include "forms/form_builder.h"
#include "store/package_quantities.h"

#include <QDialog>

namespace tolvinpt {

class KeyedToolBar;
class PackageGrid;
class PackageModel;
class ValidateOnLeave;

class frmQuantity final : public QDialog
{
    Q_OBJECT

public:
    // Builds the dialog and loads `packages` into the grid (element 0 is package 1, a zero is an empty
    // row). The caller then fills txtDelivery and txtEquality.
    explicit frmQuantity(const PackageQuantities& packages, QWidget* parent = nullptr);
    ~frmQuantity() override;

    // A grid cell has changed since the dialog was loaded.
    bool bGridChanged = false;

    // True once a close accepted the grid: its packages add up to the delivery quantity.
    bool packagesAccepted() const { return m_accepted; }
    // The accepted packages in grid order, the empty rows left out, zeros after the last.
    const PackageQuantities& packages() const { return m_packages; }

    // Controls by name: txtDelivery, txtEquality, txtTotal, Picture1, spdQuantity.
    QWidget* control(const QString& name) const { return m_controls.value(name); }
    template <class T> T* control(const QString& name) const { return qobject_cast<T*>(control(name)); }
    PackageGrid* grid() const { return m_grid; }
    KeyedToolBar* toolbar1() const { return m_toolbar; }

    // The toolbar's buttons: "戻る" closes (asking when the grid changed), "均等割り" splits equally.
    void Toolbar1_ButtonClick(const QString& key);

    // Escape and the close box close the way "戻る" does.
    void reject() override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void buildChrome();
    void installFieldRules();
    void Form_Load(const PackageQuantities& packages);
    void Form_Resize();
    void spdQuantity_Change(const QModelIndex& topLeft, const QModelIndex& bottomRight);
    void txtTotal_Change();
    void txtEquality_Validate(bool& cancel);
    void equalSplit();
    void closeDialog();
    void acceptPackages();

    ControlMap m_controls;
    KeyedToolBar* m_toolbar = nullptr;
    QWidget* m_client = nullptr; // below the toolbar: the fields and Picture1
    PackageModel* m_model = nullptr;
    PackageGrid* m_grid = nullptr;
    ValidateOnLeave* m_leave = nullptr;
    bool m_accepted = false;
    PackageQuantities m_packages{};
};

} // namespace tolvinpt
