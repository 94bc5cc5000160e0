/* One run of a host process against the simulated target, keeping the
 * target's NVRAM in a file the way tavo-host --nvram does:
 *
 *   tavosim-nvram-session FILE write LID HEX   writes record 1 of LID
 *   tavosim-nvram-session FILE read LID        prints record 1 of LID in hex
 *
 * An empty FILE keeps nothing. Exit code: 0 done, 1 the call failed, 2 usage
 * or NVRAM file problem. */

#include <QByteArray>
#include <QCoreApplication>
#include <QStringList>

#include <cstdio>

#include "TavoSimControl.h"

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments().mid(1);
    const bool write = args.size() == 4 && args[1] == QLatin1String("write");
    if (!write && !(args.size() == 3 && args[1] == QLatin1String("read"))) {
        std::fputs("usage: tavosim-nvram-session FILE write LID HEX | FILE read LID\n", stderr);
        return 2;
    }
    QString error;
    if (!TavoSim::SetNvramFile(args[0], &error)) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return 2;
    }

    const QByteArray lid = args[2].toLatin1();
    QByteArray record = write ? QByteArray::fromHex(args[3].toLatin1()) : QByteArray(4096, '\0');
    SNvramAccessRequest request{lid.constData(), 1, uint32_t(record.size()),
                                reinterpret_cast<unsigned char *>(record.data())};
    SNvramAccessConfirm confirm{};
    const TAVO_RESULT result =
        write ? TAVO_NVRAM_Write_r(0, 10000, &request, &confirm) : TAVO_NVRAM_Read_r(0, 10000, &request, &confirm);
    if (result != TAVO_OK)
        return 1;
    if (!write)
        std::printf("%s\n", record.left(int(confirm.size)).toHex().constData());
    return 0;
}
