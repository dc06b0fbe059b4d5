#include "arguments.h"

#include <QTextStream>

Arguments::Arguments(const QString& command, const QList<Option>& options, const QString& positionalName)
    : mCommand(command)
    , mOptions(options)
    , mPositionalName(positionalName)
{
    for (const Option& option : options)
        mParser.addOption({ option.name, QString(), option.valueName, option.defaultValue });
}

bool Arguments::refuse(const QString& reason, QTextStream& err) const
{
    err << "tintorel-cli " << mCommand << ": " << reason << Qt::endl;
    return false;
}

bool Arguments::parse(const QStringList& arguments, QTextStream& err)
{
    if (!mParser.parse(QStringList { QStringLiteral("tintorel-cli") } + arguments))
        return refuse(mParser.errorText(), err);
    const QStringList positional = mParser.positionalArguments();
    if (positional.isEmpty())
        return refuse(QStringLiteral("%1 is missing").arg(mPositionalName), err);
    if (positional.size() > 1)
        return refuse(QStringLiteral("unexpected argument '%1'").arg(positional.at(1)), err);
    mPositional = positional.first();
    for (const Option& option : std::as_const(mOptions))
        if (option.required && !mParser.isSet(option.name))
            return refuse(QStringLiteral("--%1 %2 is required").arg(option.name, option.valueName), err);
    return true;
}
