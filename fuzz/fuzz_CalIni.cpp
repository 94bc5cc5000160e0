// Every calibration item's Cal/INI reader, TD-SCDMA and general, on
// whatever a file may hold. The target is the simulated one on the profile
// FUZZ_PROFILE names (default "default"), so the items of that target read.
#include <QFile>
#include <QTemporaryDir>

#include "Descriptors/GeneralItemCatalog.h"
#include "Descriptors/TdscdmaItemCatalog.h"
#include "FuzzSupport.h"
#include "TIniFile.h"
#include "TavoSimControl.h"

namespace {

struct SReaders {
    QTemporaryDir dir;
    QString path;
    STdscdmaItemCatalog tdscdma = STdscdmaItemCatalog::Create();
    SGeneralItemCatalog general = SGeneralItemCatalog::Create();

    SReaders()
    {
        QuietTool();
        const QByteArray profile = qgetenv("FUZZ_PROFILE");
        TavoSim::LoadProfile(profile.isEmpty() ? "default" : QString::fromLatin1(profile));
        TavoSim::LoadDatabase();
        path = dir.filePath("fuzz.ini");
    }
};

template <typename Items>
void ReadAll(Items &items, TIniFile &file)
{
    for (auto &item : items) {
        QString message;
        item->IsInFile(&file);
        item->Move(ECalDataMovement::LoadFromFile, &file, message);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static SReaders readers;
    TavoSim::ClearCallLog(); // the log would grow with every input
    {
        QFile out(readers.path);
        if (!out.open(QIODevice::WriteOnly) || out.write(Bytes(data, size)) != qint64(size))
            return 0;
    }
    TIniFile file(readers.path);
    ReadAll(readers.tdscdma.calItems, file);
    ReadAll(readers.general.calItems, file);
    return 0;
}
