#include "cli/PlanOutput.h"

#include "app/RunReport.h"
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
    QStringList lines;
    for (const QString& application : applicationsOf(plan)) {
        lines.append(application);
        for (const RunPlan::Item& item : plan.items) {
            if (item.application != application || rewriteWithOldCopy(plan, item.path))
                continue;
            lines.append(u"  erase    %1  %2  %3"_s.arg(RunReport::humanSize(item.bytes), 10)
                             .arg(RunReport::count(qint64(item.files), u"file"_s, u"files"_s), 9)
                             .arg(RunReport::tilde(item.path)));
        }
        for (const Rewrite& rewrite : plan.rewrites) {
            if (rewrite.application != application)
                continue;
            QString size;
            for (const RunPlan::Item& item : plan.items) {
                if (!rewrite.oldCopy.isEmpty() && item.path == rewrite.oldCopy)
                    size = RunReport::humanSize(item.bytes);
            }
            lines.append(
                u"  rewrite  %1  %2  %3"_s.arg(size, 10).arg(QString(), 9).arg(RunReport::tilde(rewrite.path)));
        }
    }
    if (!plan.passedOver.isEmpty())
        lines.append(u"Passed over because running: %1."_s.arg(plan.passedOver.join(u", "_s)));
    if (plan.items.isEmpty() && plan.rewrites.isEmpty())
        lines.append(u"Nothing was found to erase or rewrite in %1."_s.arg(QDir::homePath()));
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
