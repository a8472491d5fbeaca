#pragma once

#include "component/host_registry.h"
#include "forms/frmData/frmData.h"
#include "tests/support/fake_host.h"

#include <QLineEdit>

#include <gtest/gtest.h>

#include <memory>

namespace tolvinpt::test {

// A loaded entry form over fake company settings; edit `host` and call load() again for other settings.
class FormTest : public testing::Test
{
protected:
    void SetUp() override { registerFakeHost(host); }
    void TearDown() override
    {
        form.reset();
        RegisterHostObjects(nullptr);
    }

    frmData& load()
    {
        form.reset();
        company = hostObjects().CreateCompanySettings();
        form = std::make_unique<frmData>(*company);
        return *form;
    }

    QWidget* control(const QString& name) const { return form->control(name); }
    QLineEdit* text(const QString& name) const { return form->control<QLineEdit>(name); }
    void clearFlags() const { form->bChanged = form->bChangedAmount = form->bChangedQTY = false; }

    FakeHostData host;
    std::shared_ptr<CompanySettings> company;
    std::unique_ptr<frmData> form;
};

} // namespace tolvinpt::test
