#include "kv1tool.h"

#include "model/runtimeerror.h"

#include <QFileInfo>
#include <algorithm>
#include <cstdio>

namespace {
void write(std::FILE* stream, const QString& text) {
    const QByteArray bytes = text.toLocal8Bit();
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stream);
    std::fflush(stream);
}

QString synopsis(const ToolCommand& command) {
    QString line = QStringLiteral("kv1 ") + command.name;
    for (const QString& argument : command.arguments)
        line += QLatin1Char(' ') + argument;
    // A long list of options is told in the command's own help.
    if (command.options.size() > 2) return line + QStringLiteral(" [OPTIONS]");
    for (const ToolOption& option : command.options)
        line += option.valueName.isEmpty() ? QStringLiteral(" [%1]").arg(option.name)
                                           : QStringLiteral(" [%1 %2]").arg(option.name, option.valueName);
    return line;
}

QString usage(const QList<ToolCommand>& commands) {
    QString text;
    for (int i = 0; i < commands.size(); ++i)
        text += (i == 0 ? QStringLiteral("Usage: ") : QStringLiteral("       ")) + synopsis(commands[i]) +
                QLatin1Char('\n');
    return text + QStringLiteral("Run \"kv1 --help\" for more.\n");
}

QString indented(const QString& text, int columns) {
    QString out;
    for (const QString& line : text.split(QLatin1Char('\n')))
        out += QString(columns, QLatin1Char(' ')) + line + QLatin1Char('\n');
    return out;
}

QString commandHelp(const ToolCommand& command) {
    QString text = QStringLiteral("  ") + synopsis(command) + QLatin1Char('\n') + indented(command.help, 6);
    for (const ToolOption& option : command.options)
        text += QStringLiteral("      %1 %2").arg(option.name, option.valueName).leftJustified(26) +
                option.help +
                (option.valueName.isEmpty() ? QStringLiteral("\n")
                                            : QStringLiteral(" (default %1)\n").arg(option.defaultValue));
    return text;
}

QString fullHelp(const QList<ToolCommand>& commands) {
    QString text =
        QStringLiteral("Usage: kv1 COMMAND ARGUMENTS [OPTIONS]\n"
                       "\n"
                       "kv1 works on Kelvrin projects without starting Kelvrin: a project file (.kv1) and,\n"
                       "beside it, its picture folder (the file's name less \".kv1\", then \"_Data\").\n"
                       "It builds pane pictures in a temporary folder of its own, never in Kelvrin's\n"
                       "MyProjects, so it can run while Kelvrin is open.\n"
                       "\n"
                       "Commands:\n");
    for (const ToolCommand& command : commands)
        text += QLatin1Char('\n') + commandHelp(command);
    text +=
        QStringLiteral("\n"
                       "Options of every command:\n"
                       "  -h, --help          show this help; after a command, that command's help\n"
                       "  --                  what follows is an argument, even when it starts with \"-\"\n"
                       "\n"
                       "Exit status: 0 done, 1 failed (the reason is on standard error), 2 wrong usage.\n");
    return text;
}

bool isHelp(const QString& argument) {
    return argument == QLatin1String("-h") || argument == QLatin1String("--help");
}

// Reads a command's arguments and options; returns false when help was asked for instead.
bool parse(const ToolCommand& command, const QStringList& arguments, ToolArguments& out) {
    out.command = &command;
    for (const ToolOption& option : command.options)
        out.options.insert(option.name, option.defaultValue);
    QStringList given;
    bool optionsEnded = false;
    for (int i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        if (optionsEnded || argument == QLatin1String("-") || !argument.startsWith(QLatin1Char('-'))) {
            out.positional << argument;
            continue;
        }
        if (argument == QLatin1String("--")) {
            optionsEnded = true;
            continue;
        }
        if (isHelp(argument)) return false;
        const QString name = argument.section(QLatin1Char('='), 0, 0);
        const auto known = std::find_if(command.options.begin(), command.options.end(),
                                        [&name](const ToolOption& o) { return o.name == name; });
        if (known == command.options.end())
            throw UsageError(QStringLiteral("%1 has no option %2").arg(command.name, name));
        if (given.contains(name)) throw UsageError(QStringLiteral("%1 is given twice").arg(name));
        given << name;
        if (known->valueName.isEmpty()) {
            if (argument.contains(QLatin1Char('=')))
                throw UsageError(QStringLiteral("%1 takes no value").arg(name));
            out.options[name] = QStringLiteral("1");
        } else if (argument.contains(QLatin1Char('='))) {
            out.options[name] = argument.section(QLatin1Char('='), 1);
        } else {
            if (i + 1 >= arguments.size())
                throw UsageError(QStringLiteral("%1 needs a value: %1 %2").arg(name, known->valueName));
            out.options[name] = arguments[++i];
        }
    }
    if (out.positional.size() != command.arguments.size())
        throw UsageError(
            QStringLiteral("%1 takes %2").arg(command.name, command.arguments.join(QLatin1Char(' '))));
    return true;
}
} // namespace

int WholeOption(const ToolArguments& arguments, const QString& name, int low, int high) {
    bool ok = false;
    const int value = arguments.option(name).toInt(&ok);
    if (!ok || value < low || value > high)
        throw UsageError(
            QStringLiteral("%1 takes a whole number from %2 to %3").arg(name).arg(low).arg(high));
    return value;
}

ToolOption CellOption() {
    return {QStringLiteral("--cell"), QStringLiteral("N"),
            QStringLiteral("side of the pane pictures in pixels, 1 to 4096"), QStringLiteral("256")};
}

ToolOption FlagOption(const char* name, const char* help) {
    return {QString::fromLatin1(name), QString(), QString::fromLatin1(help), QString()};
}

QString OutputPath(const QString& given) {
    const QFileInfo out(given);
    if (!QFileInfo(out.absolutePath()).isDir())
        throw ToolFailure(QStringLiteral("no such folder: ") + out.absolutePath());
    return out.absoluteFilePath();
}

void Print(const QString& text) {
    write(stdout, text);
}
void Report(const QString& text) {
    write(stderr, text);
}

int RunTool(const QList<ToolCommand>& commands, const QStringList& arguments) {
    try {
        if (arguments.isEmpty()) throw UsageError(QStringLiteral("no command given"));
        if (isHelp(arguments[0]) || arguments[0] == QLatin1String("help")) {
            Print(fullHelp(commands));
            return 0;
        }
        const auto command =
            std::find_if(commands.begin(), commands.end(),
                         [&arguments](const ToolCommand& c) { return c.name == arguments[0]; });
        if (command == commands.end())
            throw UsageError(QStringLiteral("unknown command %1").arg(arguments[0]));
        ToolArguments parsed;
        if (!parse(*command, arguments.mid(1), parsed)) {
            Print(QStringLiteral("Usage:\n") + commandHelp(*command));
            return 0;
        }
        return command->run(parsed);
    } catch (const UsageError& error) {
        write(stderr, QStringLiteral("kv1: ") + error.message + QLatin1Char('\n') + usage(commands));
        return 2;
    } catch (const ToolFailure& failure) {
        write(stderr, QStringLiteral("kv1: ") + failure.message + QLatin1Char('\n'));
    } catch (const RunTimeError& error) {
        write(stderr, QStringLiteral("kv1: ") + error.text() + QLatin1Char('\n'));
    }
    return 1;
}
