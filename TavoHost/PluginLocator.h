#pragma once
/*
 * Finds tool plug-ins and checks what they declare about themselves, without
 * loading them: everything here reads QPluginLoader::metaData() only.
 */
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QVector>

class CPluginLocator {
public:
    /* A shared object in a folder that claims to be a tool plug-in. */
    struct SCandidate {
        QString path;
        QJsonObject metaData; /* as QPluginLoader::metaData() gives it */
    };
    struct SScan {
        QVector<SCandidate> candidates; /* sorted by file name */
        QStringList skipped;            /* Qt plug-ins of another kind, one line each */
    };

    /* The shared objects in `folder` whose metadata carries the tool plug-in
     * IID. Files that are no Qt plug-in at all (libraries, other files) are
     * passed over silently; Qt plug-ins with another IID are listed in
     * `skipped` with the reason. */
    static SScan Scan(const QString &folder);

    /* Checks the loader metadata of a tool plug-in: the IID, the class name,
     * and the MetaData object with its "type", "name", "version" (strings)
     * and "dependencies" (array). Returns an empty string when all is well,
     * else every problem found, separated by "; ". */
    static QString CheckMetaData(const QJsonObject &loaderMetaData);

    /* One line describing the MetaData object, for the host's log. */
    static QString Describe(const QJsonObject &loaderMetaData);
};
