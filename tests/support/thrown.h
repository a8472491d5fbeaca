#pragma once

#include <QString>

#include <gtest/gtest.h>

#include <functional>

namespace tolvinpt::test {

// The number and text of the `Error` that `act` throws; number 0, and a failed test, when it throws none.
struct Thrown
{
    long number = 0;
    QString description;
};

template <class Error> Thrown thrown(const std::function<void()>& act)
{
    try {
        act();
    } catch (const Error& e) {
        return {e.number(), e.description()};
    }
    ADD_FAILURE() << "no error";
    return {};
}

} // namespace tolvinpt::test
