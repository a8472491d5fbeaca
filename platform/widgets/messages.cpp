#include "platform/widgets/messages.h"

#include <QApplication>

namespace tolvinpt {
namespace {

class RealMessages final : public MessageService
{
public:
    QMessageBox::StandardButton show(const Message& m) override
    {
        QMessageBox box(m.icon, m.title, m.text, m.buttons, QApplication::activeWindow());
        if (m.defaultButton != QMessageBox::NoButton)
            box.setDefaultButton(m.defaultButton);
        return static_cast<QMessageBox::StandardButton>(box.exec());
    }
    void beep() override { QApplication::beep(); }
};

RealMessages realMessages;
MessageService* installed = nullptr;

} // namespace

MessageService& messages()
{
    return installed ? *installed : realMessages;
}

void installMessageService(MessageService* service)
{
    installed = service;
}

void showExclamation(const QString& text, const QString& title)
{
    messages().show({text, title, QMessageBox::Warning, QMessageBox::Ok, QMessageBox::Ok});
}

void showInformation(const QString& text, const QString& title)
{
    messages().show({text, title, QMessageBox::Information, QMessageBox::Ok, QMessageBox::Ok});
}

} // namespace tolvinpt
