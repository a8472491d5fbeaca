#include "platform/widgets/guarded.h"

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QtDebug>

namespace tolvinpt {
namespace {

HandlerFailures* innermost = nullptr;

void reportDropped(const std::exception_ptr& failure) noexcept
{
    try {
        std::rethrow_exception(failure);
    } catch (const std::exception& e) {
        qCritical("tolvinpt: a handler failed outside an entry call: %s", e.what());
    } catch (...) {
        qCritical("tolvinpt: a handler failed outside an entry call");
    }
}

} // namespace

HandlerFailures::HandlerFailures() : m_outer(innermost)
{
    innermost = this;
}

HandlerFailures::~HandlerFailures()
{
    innermost = m_outer;
}

int HandlerFailures::exec(QDialog& dialog)
{
    rethrow();
    QDialog* outerDialog = std::exchange(m_dialog, &dialog);
    const QPointer<QWidget> before = QApplication::activeWindow();
    const int result = dialog.exec();
    m_dialog = outerDialog;
    // The keyboard goes back to the window the dialog came over. A window manager would see to that;
    // without one (a bare X server, the offscreen platform) no window would be active any more.
    if (before && before->isVisible())
        before->activateWindow();
    rethrow();
    return result;
}

void HandlerFailures::rethrow() const
{
    if (m_failure)
        std::rethrow_exception(m_failure);
}

void HandlerFailures::keep(std::exception_ptr failure) noexcept
{
    if (!innermost) {
        reportDropped(failure);
        return;
    }
    if (innermost->m_failure)
        return;
    innermost->m_failure = std::move(failure);
    // done() closes the window without asking (its close event is not delivered) and ends its exec().
    if (innermost->m_dialog) {
        try {
            innermost->m_dialog->done(QDialog::Rejected);
        } catch (...) { // the first failure is kept already
        }
    }
}

} // namespace tolvinpt
