#pragma once

#include <QMessageBox>
#include <QString>

namespace tolvinpt {

// One message box as the operator sees it.
struct Message
{
    QString text;
    QString title;
    QMessageBox::Icon icon = QMessageBox::Warning;
    QMessageBox::StandardButtons buttons = QMessageBox::Ok;
    QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
};

// Every message box and every beep goes through this service, so that tests can answer and count them.
class MessageService
{
public:
    virtual ~MessageService() = default;
    // Shows the message modally and returns the button the operator chose.
    virtual QMessageBox::StandardButton show(const Message& message) = 0;
    virtual void beep() = 0;
};

// The installed service; the real message boxes unless a test installed another.
MessageService& messages();
// Installs `service` (not owned); null restores the real one.
void installMessageService(MessageService* service);

// Shorthands for the common shapes.
void showExclamation(const QString& text, const QString& title);
void showInformation(const QString& text, const QString& title);

} // namespace tolvinpt
