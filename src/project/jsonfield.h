#pragma once
#include <QJsonArray>
#include <QUuid>

class QJsonObject;

// Forgiving reads of one key of a project document: a missing key or a
// value of the wrong type gives the fallback, never an error.
namespace JsonField {

// Counts and sizes outside 0..MaxCount are bad values and read as their
// fallback, so that a damaged number never becomes an allocation.
constexpr int MaxCount = 65536;

int readInt(const QJsonObject& object, const char* key, int fallback);
// The fallback also for a number outside low..high.
int readBounded(const QJsonObject& object, const char* key, int fallback, int low, int high);
int readCount(const QJsonObject& object, const char* key, int fallback);
bool readBool(const QJsonObject& object, const char* key, bool fallback);
QString readString(const QJsonObject& object, const char* key);
QJsonArray readArray(const QJsonObject& object, const char* key);
// A string that does not parse is the null id; the fallback is for a
// missing key or another type.
QUuid readId(const QJsonObject& object, const char* key, const QUuid& fallback);

} // namespace JsonField
