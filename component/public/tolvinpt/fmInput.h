#pragma once

#include <tolvinpt/error.h>
#include <tolvinpt/global.h>
#include <tolvinpt/hard_copy.h>
#include <tolvinpt/host.h>
#include <tolvinpt/items.h>

#include <QString>

namespace tolvinpt {

// The component's public class. Creating one asks the registered HostObjects factory for the company
// settings (and through it the database) and the customer list; these are shared by every fmInput:
// a second object replaces them for all, and destroying any object releases them for all.
// Use objects on the thread that has the QApplication.
class TOLVINPT_EXPORT fmInput
{
public:
    fmInput();
    ~fmInput();
    fmInput(const fmInput&) = delete;
    fmInput& operator=(const fmInput&) = delete;

    // Shows the entry form on the records of `items`, in order, and returns when the operator closes
    // it. Returns at once when `items` is empty. Throws tolvinpt::Error on a host or database failure.
    void InputData(Items& items);
    // Shows the entry form for one new record typed in by hand. Always returns false.
    bool NewData();

    // "50.0.1": major, minor and revision without padding.
    QString GetDllVersion() const;
    // Base name of the loaded library file as the process sees it, without directory and extension.
    QString GetFileName() const;
    // "Delivery-Data Entry".
    QString GetFileDescription() const;
};

} // namespace tolvinpt
