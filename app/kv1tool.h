#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <exception>

// The command line of kv1: a table of commands, each with its arguments and options, read by one
// parser and described by one help text. A new command is one more entry in the table.

struct ToolOption {
    QString name;         // "--cell"
    QString valueName;    // "N"; empty for a switch, which reads "1" when given and "" when not
    QString help;         // one line for --help
    QString defaultValue; // what the command sees when the option is not given
};

struct ToolCommand;

// What the parser hands a command: its arguments in order and every one of its options.
struct ToolArguments {
    const ToolCommand* command = nullptr;
    QStringList positional;
    QMap<QString, QString> options; // by name, with the default when not given
    QString option(const QString& name) const { return options.value(name); }
};

struct ToolCommand {
    QString name;          // "copy"
    QStringList arguments; // as the usage shows them: "PROJECT.kv1", "NEW.kv1"
    QString help;          // what it does, for --help; lines of at most 80 columns
    QList<ToolOption> options;
    int (*run)(const ToolArguments&); // the exit status
};

// Something that cannot be done: "kv1: <message>" on standard error, exit status 1.
class ToolFailure : public std::exception {
public:
    explicit ToolFailure(QString message) : message(std::move(message)) {}
    const char* what() const noexcept override { return "kv1 failure"; }
    QString message;
};

// A command line that does not fit the table: the message and the usage, exit status 2.
class UsageError : public std::exception {
public:
    explicit UsageError(QString message) : message(std::move(message)) {}
    const char* what() const noexcept override { return "kv1 usage"; }
    QString message;
};

// The whole number an option holds, from low to high; a UsageError otherwise.
int WholeOption(const ToolArguments& arguments, const QString& name, int low, int high);
// "--cell N", the side of the pane pictures that a command builds.
ToolOption CellOption();
// A switch: given or not.
ToolOption FlagOption(const char* name, const char* help);
// The absolute path of a file to write; a ToolFailure when its folder does not exist.
QString OutputPath(const QString& given);

// Text for people on standard output; progress on standard error.
void Print(const QString& text);
void Report(const QString& text);

// Runs a command line (without the program's name) against the table; returns the exit status.
// Run-time errors of the core end up as "kv1: <text>", exit status 1.
int RunTool(const QList<ToolCommand>& commands, const QStringList& arguments);
