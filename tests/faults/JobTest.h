// SPDX-License-Identifier: MIT
#pragma once

#include "tests/faults/FileJobs.h"
#include "tests/support/OpenResources.h"
#include "tests/support/StoredFile.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

/// One job over a stored file, with what it writes when nothing goes wrong.
class PreparedJob
{
public:
    PreparedJob(const FileJob& job, int size)
        : mStored(job.stored(contentOfSize(size))),
          mWork(job.prepare(mStored.path(), static_cast<int>(QFile(mStored.path()).size())))
    {
        QFile out(outPath());
        EXPECT_TRUE(out.open(QIODevice::WriteOnly));
        EXPECT_EQ(mWork(&out, nullptr), 0) << job.name;
        out.close();
        mExpected = contentOf(outPath());
    }

    const StoredFile& stored() const { return mStored; }
    const QByteArray& expected() const { return mExpected; }
    QString outPath() const { return mFolder.filePath(QStringLiteral("out")); }

    int runTo(QFile& out, const ProgressCallback& callback = nullptr) const
    {
        return mWork(&out, callback);
    }

    /// Runs it with the ground taken away by `fault`, an object that lives meanwhile: -1, nothing
    /// left open or mapped, and in the file no byte that does not belong there.
    template <class Fault>
    void expectFailure(Fault fault, const ProgressCallback& callback = nullptr) const
    {
        QFile out(outPath());
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        const OpenResources before = OpenResources::of(mStored.path());
        int result = 0;
        {
            [[maybe_unused]] const auto active = fault();
            result = mWork(&out, callback);
        }
        EXPECT_EQ(OpenResources::of(mStored.path()), before);
        out.close();
        EXPECT_EQ(result, -1);
        // Whole files would be printed on a difference.
        EXPECT_TRUE(mExpected.startsWith(contentOf(outPath())));
    }

private:
    QTemporaryDir mFolder;
    StoredFile mStored;
    FileJob::Work mWork;
    QByteArray mExpected;
};
