#pragma once

#include "platform/ApplicationQuitter.h"

#include <QString>

#include <sys/types.h>

// The user's own processes, read from /proc, whose command line runs from the
// bundle of a listed application; quitting sends them SIGTERM.
class ProcApplicationQuitter final : public ApplicationQuitter {
public:
    explicit ProcApplicationQuitter(QString procRoot = QStringLiteral("/proc"));

    int countOrQuitApplications(bool quit) override;

private:
    QString m_procRoot;
    uid_t m_uid;
    pid_t m_self;
};
