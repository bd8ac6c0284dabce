#include "cli/PlanOutput.h"

#include "app/RunReport.h"
#include "cli/CliOutput.h"
#include "erase/RunPlan.h"

#include <QDir>

#include <nlohmann/json.hpp>

using namespace Qt::StringLiterals;
using Json = nlohmann::ordered_json;

namespace {

// The applications in the order their cleaners ran, each once.
QStringList applicationsOf(const RunPlan& plan)
{
    QStringList names;
    for (const RunPlan::Item& item : plan.items) {
        if (!names.contains(item.application))
            names.append(item.application);
    }
    for (const Rewrite& rewrite : plan.rewrites) {
        if (!names.contains(rewrite.application))
            names.append(rewrite.application);
    }
    QStringList ordered;
    for (const QString& name : plan.lookedFor) {
        if (names.contains(name))
            ordered.append(name);
    }
    for (const QString& name : names) {
        if (!ordered.contains(name))
            ordered.append(name);
    }
    return ordered;
}

const Rewrite* rewriteWithOldCopy(const RunPlan& plan, const QString& path)
{
    for (const Rewrite& rewrite : plan.rewrites) {
        if (!rewrite.oldCopy.isEmpty() && rewrite.oldCopy == path)
            return &rewrite;
    }
    return nullptr;
}

} // namespace

QStringList PlanOutput::text(const RunPlan& plan)
{
    // The two verbs are padded to the longer of them, whatever the language.
    QString erase = Cli::tr("erase");
    QString rewrite = Cli::tr("rewrite");
    const qsizetype verbWidth = qMax(erase.size(), rewrite.size());
    erase = erase.leftJustified(verbWidth);
    rewrite = rewrite.leftJustified(verbWidth);
    QStringList lines;
    for (const QString& application : applicationsOf(plan)) {
        lines.append(RunReport::applicationName(application));
        for (const RunPlan::Item& item : plan.items) {
            if (item.application != application || rewriteWithOldCopy(plan, item.path))
                continue;
            lines.append(u"  %1  %2  %3  %4"_s.arg(erase)
                             .arg(RunReport::humanSize(item.bytes), 10)
                             .arg(RunReport::files(qint64(item.files)), 9)
                             .arg(RunReport::tilde(item.path)));
        }
        for (const Rewrite& entry : plan.rewrites) {
            if (entry.application != application)
                continue;
            QString size;
            for (const RunPlan::Item& item : plan.items) {
                if (!entry.oldCopy.isEmpty() && item.path == entry.oldCopy)
                    size = RunReport::humanSize(item.bytes);
            }
            lines.append(
                u"  %1  %2  %3  %4"_s.arg(rewrite).arg(size, 10).arg(QString(), 9).arg(RunReport::tilde(entry.path)));
        }
    }
    if (!plan.passedOver.isEmpty())
        lines.append(RunReport::passedOver(plan.passedOver));
    if (plan.items.isEmpty() && plan.rewrites.isEmpty())
        lines.append(RunReport::nothingFound(QDir::homePath()));
    lines.append(RunReport::planTotals(plan));
    return lines;
}

std::string PlanOutput::json(const RunPlan& plan)
{
    Json applications = Json::array();
    for (const QString& application : applicationsOf(plan)) {
        Json erase = Json::array();
        for (const RunPlan::Item& item : plan.items) {
            if (item.application == application)
                erase.push_back({{"path", item.path.toStdString()}, {"files", item.files}, {"bytes", item.bytes}});
        }
        Json rewrite = Json::array();
        for (const Rewrite& entry : plan.rewrites) {
            if (entry.application != application)
                continue;
            rewrite.push_back({{"path", entry.path.toStdString()},
                               {"old_copy", entry.oldCopy.isEmpty() ? Json() : Json(entry.oldCopy.toStdString())}});
        }
        applications.push_back({{"name", application.toStdString()}, {"erase", erase}, {"rewrite", rewrite}});
    }
    Json passedOver = Json::array();
    for (const QString& name : plan.passedOver)
        passedOver.push_back(name.toStdString());
    const Json document{{"home", QDir::homePath().toStdString()},
                        {"applications", applications},
                        {"passed_over", passedOver},
                        {"totals",
                         {{"items", plan.items.size()},
                          {"files", plan.files()},
                          {"bytes", plan.bytes()},
                          {"rewrites", plan.rewrites.size()}}}};
    return document.dump(2) + '\n';
}

QStringList PlanOutput::shredAndSkipLines(const QByteArray& log)
{
    QStringList lines;
    for (const QString& line : QString::fromUtf8(log).split(u'\n')) {
        // After the time stamp ("Mon Nov 23 06:45:01 2026 ").
        const QString message = line.mid(25);
        if (message.startsWith(u"Shred"_s) || message.startsWith(u"Skip"_s))
            lines.append(message);
    }
    return lines;
}
