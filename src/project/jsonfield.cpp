#include "project/jsonfield.h"

#include <QJsonObject>

namespace JsonField {

int readInt(const QJsonObject& object, const char* key, int fallback)
{
    return object.value(QLatin1String(key)).toInt(fallback);
}

int readBounded(const QJsonObject& object, const char* key, int fallback, int low, int high)
{
    const int value = readInt(object, key, fallback);
    return value < low || value > high ? fallback : value;
}

int readCount(const QJsonObject& object, const char* key, int fallback)
{
    return readBounded(object, key, fallback, 0, MaxCount);
}

bool readBool(const QJsonObject& object, const char* key, bool fallback)
{
    return object.value(QLatin1String(key)).toBool(fallback);
}

QString readString(const QJsonObject& object, const char* key)
{
    return object.value(QLatin1String(key)).toString();
}

QJsonArray readArray(const QJsonObject& object, const char* key)
{
    return object.value(QLatin1String(key)).toArray();
}

QUuid readId(const QJsonObject& object, const char* key, const QUuid& fallback)
{
    const QJsonValue value = object.value(QLatin1String(key));
    return value.isString() ? QUuid::fromString(value.toString()) : fallback;
}

} // namespace JsonField
