#pragma once

#include <QJsonObject>
#include <QVBoxLayout>

#include "AutoBindingDataModelDockWidget.h"

// A page for tests: its widgets are made by the test, and its model comes
// from the test instead of a controller, through the same queued slot.
class TestPage : public CAutoBindingDataModelDockWidget {
    Q_OBJECT
public:
    explicit TestPage(int isCalDataPage = 0);

    QWidget *GetWidgetRoot() override { return this; }
    int IsCalDataPage() override { return m_calData; }
    void RequestDataModel() override;
    void DisableOperation() override {}
    void EnableOperation() override {}

    // A widget of class W named `name` in the page's content.
    template <typename W>
    W *Add(const QString &name)
    {
        auto *widget = new W(m_content);
        widget->setObjectName(name);
        m_layout->addWidget(widget);
        return widget;
    }
    // The same for a class named at run time (QLabel for any other name).
    QWidget *AddOf(const QString &className, const QString &name);
    // Widgets for every member and caption of `model`, of the classes the
    // binding takes for their data and group types (for the benchmarks).
    void AddWidgetsFor(const QJsonObject &model);

    // Shows the page with `text` as its model and waits until it is bound.
    bool Load(const std::string &text);
    bool Load(const QJsonObject &model);

    QWidget *Widget(const QString &name) const { return findChild<QWidget *>(name); }

public slots:
    void Slot_TriggerStopTest() override {}

private:
    int m_calData;
    QWidget *m_content;
    QVBoxLayout *m_layout;
    std::string m_text;
};

// What a bound widget shows, in one line: class, value, value space, state.
QString Describe(QWidget *widget);

QJsonObject Json(const QString &text);

// A model whose one group, cmdIf.<section>.group1, is of `groupType` and
// holds `members` (listed in key order unless `groupExtra` lists them) beside
// the keys of `groupExtra`.
QJsonObject GroupModel(const QJsonObject &members, int groupType = 1, const QJsonObject &groupExtra = {},
                       const QString &section = "request");
