#include "cli/PluginsCommands.h"

#include "settings/PluginManager.h"

#include <QDir>
#include <QFileInfo>

#include <CLI/CLI.hpp>

using namespace Qt::StringLiterals;

namespace {

struct PluginsOptions {
    std::string name;
    std::string path;
};

QString nameOf(const PluginsOptions& options)
{
    return QString::fromStdString(options.name);
}

// The plug-in of that name, or -1 after saying so.
qsizetype findPlugin(const PluginManager& manager, const QString& name)
{
    const qsizetype index = manager.indexOfPlugin(name);
    if (index < 0)
        refuse(Cli::tr("no plug-in named \"%1\" (see 'vantle-cli plugins list')").arg(name));
    return index;
}

int listPlugins()
{
    const PluginManager& manager = PluginManager::createSharedInstance();
    for (const QVariant& entry : manager.plugins()) {
        const QVariantMap plugin = entry.toMap();
        const QString name = plugin.value(u"name"_s).toString();
        printLine(u"%1 (%2%3)"_s.arg(
            name, plugin.value(Cli::tr("enabled")).toBool() ? Cli::tr("enabled") : Cli::tr("disabled"),
            manager.isDefaultPlugin(name).isEmpty() ? QString() : Cli::tr(", default")));
        for (const QVariant& path : plugin.value(u"paths"_s).toList())
            printLine(u"    "_s + path.toString());
    }
    return 0;
}

int setEnabled(const QString& name, bool enabled)
{
    PluginManager& manager = PluginManager::createSharedInstance();
    const qsizetype index = findPlugin(manager, name);
    if (index < 0)
        return kRefusedExitCode;
    manager.setEnabled(index, enabled);
    return 0;
}

int addPlugin(const QString& name)
{
    PluginManager& manager = PluginManager::createSharedInstance();
    if (name.trimmed().isEmpty())
        return refuse(Cli::tr("a plug-in needs a name"));
    if (manager.indexOfPlugin(name) >= 0)
        return refuse(Cli::tr("there is a plug-in named \"%1\" already").arg(name));
    manager.addPlugin();
    manager.setName(manager.plugins().size() - 1, name);
    return 0;
}

int addPath(const QString& name, const QString& path)
{
    PluginManager& manager = PluginManager::createSharedInstance();
    const qsizetype index = findPlugin(manager, name);
    if (index < 0)
        return kRefusedExitCode;
    if (!manager.addPaths(index, {QFileInfo(path).absoluteFilePath()}))
        return refuse(Cli::tr("\"%1\" takes no paths").arg(name));
    return 0;
}

int removePlugin(const QString& name)
{
    PluginManager& manager = PluginManager::createSharedInstance();
    const qsizetype index = findPlugin(manager, name);
    if (index < 0)
        return kRefusedExitCode;
    const bool isDefault = !manager.isDefaultPlugin(name).isEmpty();
    manager.deletePlugin(index);
    if (isDefault)
        printLine(u"\"%1\" is a default plug-in: disabled, not removed"_s.arg(name));
    return 0;
}

int restorePlugin(const QString& name)
{
    PluginManager& manager = PluginManager::createSharedInstance();
    const qsizetype index = findPlugin(manager, name);
    if (index < 0)
        return kRefusedExitCode;
    if (!manager.restoreDefault(index))
        return refuse(Cli::tr("\"%1\" is not a default plug-in: there is nothing to restore").arg(name));
    return 0;
}

} // namespace

void addPluginsCommands(CLI::App& app, CommandAction& action)
{
    auto options = std::make_shared<PluginsOptions>();
    CLI::App* plugins =
        app.add_subcommand("plugins", Cli::tr("Show or change the plug-in folders a run erases").toStdString());
    plugins->require_subcommand(1);

    plugins->add_subcommand("list", Cli::tr("The plug-ins, enabled or not, with their paths").toStdString())
        ->callback([&action] { action = listPlugins; });

    const auto withName = [&](const char* name, const char* description, auto run) {
        CLI::App* command = plugins->add_subcommand(name, description);
        command->add_option("NAME", options->name, Cli::tr("Plug-in name").toStdString())->required();
        command->callback([&action, options, run] { action = [options, run] { return run(*options); }; });
        return command;
    };
    withName("enable", "Erase this plug-in's folders",
             [](const PluginsOptions& o) { return setEnabled(nameOf(o), true); });
    withName("disable", "Keep this plug-in's folders",
             [](const PluginsOptions& o) { return setEnabled(nameOf(o), false); });
    withName("add", "Add a plug-in of your own", [](const PluginsOptions& o) { return addPlugin(nameOf(o)); });
    withName("remove", "Remove a plug-in of your own (a default one is disabled)",
             [](const PluginsOptions& o) { return removePlugin(nameOf(o)); });
    withName("restore", "Put a default plug-in's paths back",
             [](const PluginsOptions& o) { return restorePlugin(nameOf(o)); });
    withName("add-path", "Add a file or folder to a plug-in",
             [](const PluginsOptions& o) { return addPath(nameOf(o), QString::fromStdString(o.path)); })
        ->add_option("PATH", options->path, Cli::tr("File or folder").toStdString())
        ->required();
}
