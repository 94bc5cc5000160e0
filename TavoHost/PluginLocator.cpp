#include "PluginLocator.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLibrary>
#include <QPluginLoader>

#include "TavoPluginInterface.h"

CPluginLocator::SScan CPluginLocator::Scan(const QString &folder)
{
    SScan scan;
    const QDir dir(folder);
    const QFileInfoList files = dir.entryInfoList(QDir::Files | QDir::Readable, QDir::Name);
    for (const QFileInfo &file : files) {
        if (!QLibrary::isLibrary(file.fileName()))
            continue;
        const QString path = file.absoluteFilePath();
        const QJsonObject metaData = QPluginLoader(path).metaData();
        if (metaData.isEmpty())
            continue; // a plain library, or not loadable at all
        const QString iid = metaData.value(QLatin1String("IID")).toString();
        if (iid != QLatin1String(TavoPluginInterface_iid)) {
            scan.skipped << QStringLiteral("%1: IID \"%2\" is not a tool plug-in's")
                                .arg(file.fileName(), iid);
            continue;
        }
        scan.candidates.append({path, metaData});
    }
    return scan;
}

QString CPluginLocator::CheckMetaData(const QJsonObject &loaderMetaData)
{
    QStringList problems;

    const QJsonValue iid = loaderMetaData.value(QLatin1String("IID"));
    if (iid.toString() != QLatin1String(TavoPluginInterface_iid))
        problems << QStringLiteral("IID is \"%1\", expected \"%2\"")
                        .arg(iid.toString(), QLatin1String(TavoPluginInterface_iid));

    if (loaderMetaData.value(QLatin1String("className")).toString().isEmpty())
        problems << QStringLiteral("className is not set");

    const QJsonValue metaValue = loaderMetaData.value(QLatin1String("MetaData"));
    if (!metaValue.isObject() || metaValue.toObject().isEmpty()) {
        problems << QStringLiteral("MetaData is missing (the JSON file named by Q_PLUGIN_METADATA)");
        return problems.join(QLatin1String("; "));
    }

    const QJsonObject meta = metaValue.toObject();
    for (const char *key : {"type", "name", "version"}) {
        const QJsonValue value = meta.value(QLatin1String(key));
        if (value.isUndefined())
            problems << QStringLiteral("MetaData has no \"%1\"").arg(QLatin1String(key));
        else if (!value.isString())
            problems << QStringLiteral("MetaData \"%1\" is not a string").arg(QLatin1String(key));
    }
    // The tool window is found by this name, so it must say something.
    if (meta.value(QLatin1String("name")).isString() && meta.value(QLatin1String("name")).toString().isEmpty())
        problems << QStringLiteral("MetaData \"name\" is empty");

    const QJsonValue dependencies = meta.value(QLatin1String("dependencies"));
    if (dependencies.isUndefined())
        problems << QStringLiteral("MetaData has no \"dependencies\"");
    else if (!dependencies.isArray())
        problems << QStringLiteral("MetaData \"dependencies\" is not an array");

    return problems.join(QLatin1String("; "));
}

QString CPluginLocator::Describe(const QJsonObject &loaderMetaData)
{
    const QJsonObject meta = loaderMetaData.value(QLatin1String("MetaData")).toObject();
    const QByteArray dependencies =
        QJsonDocument(meta.value(QLatin1String("dependencies")).toArray()).toJson(QJsonDocument::Compact);
    return QStringLiteral("class %1, type \"%2\", name \"%3\", version \"%4\", dependencies %5")
        .arg(loaderMetaData.value(QLatin1String("className")).toString(),
             meta.value(QLatin1String("type")).toString(),
             meta.value(QLatin1String("name")).toString(),
             meta.value(QLatin1String("version")).toString(),
             QString::fromUtf8(dependencies));
}
