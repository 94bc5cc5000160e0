#pragma once

#include <QJsonObject>
#include <QString>

#include <string>

// The outcome of an update of a model, kept in the model itself under
// "modelIntegrity": {"integrity": bool, "messageList": [texts]}.

// Replaces any earlier outcome with one of `allCorrect` and one message.
void InsertModelUpdateResult(QJsonObject &model, bool allCorrect, QString errorMessage);
// Adds a message to the outcome; a true never overwrites an earlier false.
void AddModelUpdateResult(QJsonObject &model, bool allCorrect, QString errorMessage);

// A model as compact JSON text, the form in which cores and pages pass it.
std::string ModelText(const QJsonObject &model);

// The substitute model a core hands back when it has none: {"emptyModel":""}.
std::string BuildEmptyModelString();
// The same, marked as a failed update with `errorMessage`.
std::string BuildEmptyModelStringWithError(QString errorMessage);
QJsonObject BuildEmptyModelWithError(const QString &errorMessage);
