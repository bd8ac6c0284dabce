#include "cli/CustomCommands.h"

#include "erase/FileTree.h"
#include "watch/CustomShred.h"

#include <QDir>
#include <QFileInfo>

#include <CLI/CLI.hpp>

using namespace Qt::StringLiterals;

namespace {

struct CustomOptions {
    std::string process;
    std::string path;
    std::string state;
};

QString absolute(const std::string& path)
{
    return QFile::decodeName(FileTree::absolute(QByteArray::fromStdString(path)));
}

int listCustom()
{
    const CustomShred& custom = CustomShred::createSharedInstance();
    const QStringList processes = custom.processes();
    if (processes.isEmpty())
        printLine(Cli::tr("No custom processes."));
    for (const QString& process : processes) {
        printLine(process);
        for (const QVariant& item : custom.paths(process)) {
            const QVariantMap entry = item.toMap();
            const QString keep =
                entry.contains(u"keep"_s)
                    ? (entry.value(u"keep"_s).toBool() ? Cli::tr("  (folder kept)") : Cli::tr("  (folder)"))
                    : QString();
            printLine(u"    "_s + entry.value(u"path"_s).toString() + keep);
        }
    }
    return 0;
}

int addProcess(const CustomOptions& o)
{
    const QString process = absolute(o.process);
    if (!CustomShred::createSharedInstance().addProcess(process))
        return refuse(Cli::tr("\"%1\" is watched already").arg(process));
    return 0;
}

int removeProcess(const CustomOptions& o)
{
    const QString process = absolute(o.process);
    if (!CustomShred::createSharedInstance().deleteProcess(process))
        return refuse(Cli::tr("no custom process \"%1\"").arg(process));
    return 0;
}

int addPath(const CustomOptions& o)
{
    CustomShred& custom = CustomShred::createSharedInstance();
    const QString process = absolute(o.process);
    const QString path = absolute(o.path);
    if (!custom.processes().contains(process))
        return refuse(Cli::tr("no custom process \"%1\"").arg(process));
    if (!custom.addPath(process, path))
        return refuse(Cli::tr("\"%1\" is listed for that process already").arg(path));
    return 0;
}

int removePath(const CustomOptions& o)
{
    const QString path = absolute(o.path);
    if (!CustomShred::createSharedInstance().deletePath(absolute(o.process), path))
        return refuse(Cli::tr("\"%1\" is not listed for that process").arg(path));
    return 0;
}

int keep(const CustomOptions& o)
{
    const QString state = QString::fromStdString(o.state).toLower();
    if (state != u"on"_s && state != u"off"_s)
        return refuse(Cli::tr("keep takes on or off, not \"%1\"").arg(QString::fromStdString(o.state)));
    const QString path = absolute(o.path);
    if (!CustomShred::createSharedInstance().setKeep(absolute(o.process), path, state == u"on"_s))
        return refuse(Cli::tr("\"%1\" is not a folder listed for that process").arg(path));
    return 0;
}

} // namespace

void addCustomCommands(CLI::App& app, CommandAction& action)
{
    auto options = std::make_shared<CustomOptions>();
    CLI::App* custom = app.add_subcommand(
        "custom", Cli::tr("Show or change your own watched processes and their paths").toStdString());
    custom->require_subcommand(1);
    custom->add_subcommand("list", Cli::tr("Every custom process with its paths").toStdString())->callback([&action] {
        action = listCustom;
    });

    const auto command = [&](const char* name, const char* description, int (*run)(const CustomOptions&), bool withPath,
                             bool withState) {
        CLI::App* sub = custom->add_subcommand(name, description);
        sub->add_option("PROCESS", options->process, Cli::tr("The application (its full path)").toStdString())
            ->required();
        if (withPath)
            sub->add_option("PATH", options->path, Cli::tr("A file or folder").toStdString())->required();
        if (withState)
            sub->add_option("STATE", options->state, Cli::tr("on or off").toStdString())->required();
        sub->callback([&action, options, run] { action = [options, run] { return run(*options); }; });
    };
    command("add-process", "Watch an application", addProcess, false, false);
    command("remove-process", "Stop watching an application", removeProcess, false, false);
    command("add-path", "Erase a file or folder when that application quits", addPath, true, false);
    command("remove-path", "No longer erase that file or folder", removePath, true, false);
    command("keep", "Re-create a folder, empty, after each run", keep, true, true);
}
