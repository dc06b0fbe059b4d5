#pragma once
#include <QCommandLineParser>
#include <QStringList>

class QTextStream;

// A subcommand's arguments: its options, how many plain arguments it takes
// and which options it needs. A usage error is written once, saying what
// was wrong, as "tintorel-cli COMMAND: REASON".
class Arguments
{
public:
    struct Option
    {
        QString name;
        QString valueName;
        bool required = false;
        QString defaultValue = {};
    };

    Arguments(const QString& command, const QList<Option>& options, const QString& positionalName);

    // False after writing the reason to `err`.
    bool parse(const QStringList& arguments, QTextStream& err);
    // Writes the reason of a usage error found later, and returns false.
    bool refuse(const QString& reason, QTextStream& err) const;

    QString positional() const { return mPositional; }
    bool isSet(const QString& name) const { return mParser.isSet(name); }
    QString value(const QString& name) const { return mParser.value(name); }

private:
    QString mCommand;
    QList<Option> mOptions;
    QString mPositionalName;
    QCommandLineParser mParser;
    QString mPositional;
};
