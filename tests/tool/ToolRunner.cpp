// SPDX-License-Identifier: MIT
#include "tests/tool/ToolRunner.h"

#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QProcessEnvironment>
#include <QThread>
#include <csignal>

namespace {

constexpr int kPatience = 120000;

std::unique_ptr<QProcess> newProcess(const QString& folder)
{
    auto process = std::make_unique<QProcess>();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LC_ALL", "C.UTF-8");
    environment.insert("TZ", "UTC");
    process->setProcessEnvironment(environment);
    process->setWorkingDirectory(folder);
    process->setProgram(TARVOMIME_TOOL);
    return process;
}

} // namespace

void PrintTo(const ToolResult& result, std::ostream* out)
{
    *out << "exit status " << result.status << "\n--- out\n"
         << result.out.constData() << "--- err\n"
         << result.err.constData() << "---";
}

ToolRunner::ToolRunner() = default;

QString ToolRunner::write(const QString& name, const QByteArray& content) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        ADD_FAILURE() << "cannot write " << name.toStdString();
    return path(name);
}

QByteArray ToolRunner::read(const QString& name) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::ReadOnly))
        ADD_FAILURE() << "cannot read " << name.toStdString();
    return file.readAll();
}

QStringList ToolRunner::files() const
{
    QStringList names;
    QDirIterator entries(mFolder.path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext())
        names.append(QDir(mFolder.path()).relativeFilePath(entries.next()));
    names.sort();
    return names;
}

ToolResult ToolRunner::run(const QStringList& arguments, const QByteArray& input) const
{
    const auto process = start(arguments);
    process->write(input);
    process->closeWriteChannel();
    return finish(*process);
}

ToolResult ToolRunner::runInto(const QString& device, const QStringList& arguments) const
{
    const auto process = newProcess(mFolder.path());
    process->setStandardOutputFile(device);
    process->setArguments(arguments);
    process->start();
    process->closeWriteChannel();
    return finish(*process);
}

std::unique_ptr<QProcess> ToolRunner::start(const QStringList& arguments) const
{
    auto process = newProcess(mFolder.path());
    process->setArguments(arguments);
    process->start();
    if (!process->waitForStarted(kPatience))
        ADD_FAILURE() << "cannot start " TARVOMIME_TOOL;
    return process;
}

ToolResult ToolRunner::finish(QProcess& process)
{
    const bool ended =
        process.waitForFinished(kPatience) || process.state() == QProcess::NotRunning;
    const bool exited = ended && process.exitStatus() == QProcess::NormalExit;
    if (!ended)
        process.kill();
    return {exited ? process.exitCode() : -1, process.readAllStandardOutput(),
            process.readAllStandardError()};
}

bool ToolRunner::waitForFiles(QProcess& process, int count) const
{
    QElapsedTimer timer;
    for (timer.start(); timer.elapsed() < kPatience;) {
        if (files().size() >= count)
            return true;
        if (process.waitForFinished(2))
            return false;
    }
    return false;
}

bool ToolRunner::waitUntilInterruptible(const QProcess& process)
{
    const QString status = QString("/proc/%1/status").arg(process.processId());
    QElapsedTimer timer;
    for (timer.start(); timer.elapsed() < kPatience; QThread::msleep(2)) {
        QFile file(status);
        if (!file.open(QIODevice::ReadOnly))
            return false;
        const QList<QByteArray> lines = file.readAll().split('\n');
        for (const QByteArray& line : lines) {
            if (!line.startsWith("SigCgt:"))
                continue;
            const qulonglong handled = line.mid(7).trimmed().toULongLong(nullptr, 16);
            if ((handled >> (SIGINT - 1) & 1) != 0)
                return true;
        }
    }
    return false;
}
