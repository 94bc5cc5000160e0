// A page bound to the largest stored model (TPC V3) taking a hostile model
// update: whatever the JSON holds, the widgets take what fits and the page
// packs its values again.
#include <QApplication>
#include <QFile>
#include <QJsonDocument>

#include "FuzzSupport.h"
#include "RadbenchResources.h"
#include "TestPage.h"

namespace {

struct SPage {
    int argc = 1;
    char name[6] = "fuzz";
    char *argv[2] = {name, nullptr};
    QApplication *app;
    TestPage *page;

    SPage()
    {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        app = new QApplication(argc, argv);
        QuietTool();
        InitRadbenchResources();
        QFile stored(":/TdscdmaTpcV3.json");
        stored.open(QIODevice::ReadOnly);
        const QJsonObject model = QJsonDocument::fromJson(stored.readAll()).object();
        page = new TestPage(1);
        page->AddWidgetsFor(model);
        page->Load(model);
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static SPage page;
    const QJsonDocument update = QJsonDocument::fromJson(Bytes(data, size));
    page.page->UpdateWidgets(update.object());
    page.page->PackageMemberValue();
    return 0;
}
