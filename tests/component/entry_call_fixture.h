#pragma once

// One entry call as a host makes it, over a real database file and the fake host: three records of
// customer 1234 (K-1, K-2, K-3), the form reached once it is shown modally.

#include <tolvinpt/fmInput.h>

#include "component/call_state.h"
#include "forms/frmData/frmData.h"
#include "forms/frmData/record_list_menu.h"
#include "forms/keyed_toolbar.h"
#include "store/delivery_writes.h"
#include "tests/support/fake_host.h"
#include "tests/support/scripted_messages.h"
#include "tests/support/temp_database.h"
#include "tests/support/thrown.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <gtest/gtest.h>

#include <functional>
#include <optional>

using namespace Qt::StringLiterals;
using namespace tolvinpt;
using C = tolvinpt::DeliveryColumn;

namespace {

class EntryCall : public testing::Test
{
protected:
    void SetUp() override
    {
        host.connectionName = temp.connectionName();
        host.customers = {{.id = 1, .code = u"1234"_s, .name = u"東京電機"_s, .subCodes = {u"01"_s, u"02"_s}},
                          {.id = 2, .code = u"9999"_s, .name = u"東京電機"_s, .deleted = true}};
        test::registerFakeHost(host);
        for (const char* key : {"K-1", "K-2", "K-3"})
            ids.append(insert(QString::fromLatin1(key)));
        // A lock fails at once instead of after 5 s (0 would be no limit on the server).
        temp.db().execute(temp.sql(u"PRAGMA busy_timeout = 0"_s, u"SET lock_timeout = '1ms'"_s));
    }
    void TearDown() override { RegisterHostObjects(nullptr); }

    qint64 insert(const QString& key, const QString& buyer = u"1234"_s)
    {
        DeliveryRecord record;
        record.set(C::IDCustomer, 1);
        record.set(C::F00004, buyer);
        record.set(C::F00159, key);
        return insertDeliveryRecord(temp.db(), record);
    }

    // Runs `inside` on the modal form once it is shown, then closes it.
    void whileShown(const std::function<void(frmData&)>& inside)
    {
        QTimer::singleShot(0, [inside] {
            auto* form = qobject_cast<frmData*>(QApplication::activeModalWidget());
            ASSERT_TRUE(form);
            EXPECT_TRUE(QTest::qWaitForWindowActive(form)); // shortcuts reach the active window only
            inside(*form);
            form->close();
        });
    }
    // InputData on `items`, and NewData with its result: `inside` runs on the form once it is shown.
    void inputData(Items& items, const std::function<void(frmData&)>& inside)
    {
        whileShown(inside);
        fmInput().InputData(items);
    }
    bool newData(const std::function<void(frmData&)>& inside)
    {
        whileShown(inside);
        return fmInput().NewData();
    }

    static QString buttons(const frmData& form)
    {
        QString state;
        for (const char16_t* key : {u"戻る", u"進む", u"一覧選択"})
            state += form.toolbar1()->button(QString::fromUtf16(key))->isEnabled() ? u'1' : u'0';
        return state;
    }
    static QString shownKey(const frmData& form)
    {
        return form.control<QLineEdit>(u"txtPaymentKeyNo"_s)->text();
    }

    test::TempDatabase temp;
    test::FakeHostData host;
    test::ScriptedMessages messages;
    QList<qint64> ids;
};

} // namespace
