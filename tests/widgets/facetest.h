// SPDX-License-Identifier: MIT
#pragma once

#include "tests/fakes/fakeservices.h"
#include "tests/qtmain.h"

#include <QAbstractButton>
#include <QTableView>

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace velt::ui {

/// A control as an operator uses it, over fake services.
template <typename Viewer>
class FaceTest : public testing::Test {
protected:
    ~FaceTest() override { settle(); }

    void show() {
        viewer.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&viewer));
        viewer.activateWindow();
        settle();
    }
    template <typename T = QWidget>
    T* child(const char* name) {
        T* found = viewer.template findChild<T*>(name);
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    QAbstractItemModel* model(const char* view) { return child<QTableView>(view)->model(); }
    /// What a column of a table shows.
    std::vector<std::string> texts(const char* view, int column = 0) {
        std::vector<std::string> result;
        for (int row = 0; row < model(view)->rowCount(); ++row)
            result.push_back(model(view)->index(row, column).data().toString().toStdString());
        return result;
    }
    /// The stations with a check mark.
    std::vector<std::string> checked() {
        std::vector<std::string> result;
        for (int row = 0; row < model("lvVRX")->rowCount(); ++row)
            if (model("lvVRX")->index(row, 0).data(Qt::CheckStateRole) == Qt::Checked)
                result.push_back(texts("lvVRX")[static_cast<std::size_t>(row)]);
        return result;
    }
    void click(const char* button) {
        QTest::mouseClick(child<QAbstractButton>(button), Qt::LeftButton);
        settle();
    }
    void clickRow(const char* view, int row) {
        auto* table = child<QTableView>(view);
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                          table->visualRect(table->model()->index(row, 0)).center());
        settle();
    }

    fakes::FakeServices services;
    Viewer viewer{services};
};

}  // namespace velt::ui
