#include "cli/KeepCommands.h"

#include "settings/HTML5Manager.h"

#include <CLI/CLI.hpp>

using namespace Qt::StringLiterals;

namespace {

int listKept()
{
    const HTML5Manager& manager = HTML5Manager::createSharedInstance();
    printLine(Cli::tr("HTML5 storage erasing: %1").arg(manager.getEnabledState() == 0 ? u"off"_s : u"on"_s));
    for (const QString& domain : manager.domains())
        printLine(u"    "_s + domain);
    return 0;
}

int addKept(const QString& domain)
{
    HTML5Manager& manager = HTML5Manager::createSharedInstance();
    // A blank entry would keep every name holding a space.
    if (domain.trimmed().isEmpty())
        return refuse(Cli::tr("a kept domain cannot be empty"));
    if (manager.domains().contains(domain))
        return refuse(Cli::tr("\"%1\" is kept already").arg(domain));
    manager.addDomain();
    manager.setDomain(int(manager.domains().size() - 1), domain);
    return 0;
}

// Removes every copy, so that the domain is no longer kept afterwards.
int removeKept(const QString& domain)
{
    HTML5Manager& manager = HTML5Manager::createSharedInstance();
    qsizetype row = manager.domains().indexOf(domain);
    if (row < 0)
        return refuse(Cli::tr("\"%1\" is not kept (see 'vantle-cli keep list')").arg(domain));
    for (; row >= 0; row = manager.domains().indexOf(domain))
        manager.deleteDomain(int(row));
    return 0;
}

int setErasing(bool on)
{
    HTML5Manager& manager = HTML5Manager::createSharedInstance();
    if ((manager.getEnabledState() != 0) != on)
        manager.setEnabled();
    return 0;
}

} // namespace

void addKeepCommands(CLI::App& app, CommandAction& action)
{
    auto domain = std::make_shared<std::string>();
    CLI::App* keep =
        app.add_subcommand("keep", Cli::tr("Show or change the domains whose HTML5 storage is kept").toStdString());
    keep->require_subcommand(1);

    keep->add_subcommand("list", Cli::tr("Whether HTML5 storage is erased, and the kept domains").toStdString())
        ->callback([&action] { action = listKept; });
    keep->add_subcommand("on", Cli::tr("Erase HTML5 storage, except the kept domains").toStdString())
        ->callback([&action] { action = [] { return setErasing(true); }; });
    keep->add_subcommand("off", Cli::tr("Erase no HTML5 storage at all").toStdString())->callback([&action] {
        action = [] { return setErasing(false); };
    });

    const auto withDomain = [&](const char* name, const char* description, int (*run)(const QString&)) {
        CLI::App* command = keep->add_subcommand(name, description);
        command->add_option("DOMAIN", *domain, Cli::tr("Kept wherever a storage name contains it").toStdString())
            ->required();
        command->callback(
            [&action, domain, run] { action = [domain, run] { return run(QString::fromStdString(*domain)); }; });
    };
    withDomain("add", "Keep the storage of every name containing DOMAIN", addKept);
    withDomain("remove", "Stop keeping DOMAIN", removeKept);
}
