// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"
#include "types/QPtrList.h"
#include "types/TarvomimeExport.h"
// Applications have always got EMAIL_Util with this header.
#include "utility/EMAIL_Util.h"

#include <QByteArray>
#include <QString>
#include <utility>

class QFile;

/// One part of a message as a free-standing value, with its sub-parts as a tree (RFC 2046).
///
/// A part neither parses nor assembles text: `EMAIL_MIME` converts between parts and messages. Its
/// body is kept in transfer-encoded form, in memory or as a range of a file, so that a large
/// attachment stays in its file until it is wanted. A part owns its sub-parts; copies are deep.
/// Copying and deleting do not recurse over the depth of the tree.
class TARVOMIME_EXPORT EMAIL_MultiPart
{
public:
    /// A part without a type, with an empty body in memory; `parent` is not owned.
    explicit EMAIL_MultiPart(EMAIL_MultiPart* parent = nullptr);
    /// Without memory for the sub-parts it is an empty part, and a message that takes it cannot be
    /// assembled.
    EMAIL_MultiPart(const EMAIL_MultiPart& other);
    /// Copies every member and, level by level, every sub-part.
    ///
    /// 1. `mParent` is copied too: the copy's top claims the parent of the source. Parents of
    ///    copied sub-parts are the new parts.
    /// 2. Assigning a part to itself deletes its sub-parts and copies none.
    /// 3. Without memory for the sub-parts nothing changes.
    EMAIL_MultiPart& operator=(const EMAIL_MultiPart& other);

    /// Deletes all sub-parts.
    virtual ~EMAIL_MultiPart();

    // Sub-parts.

    int getSubMultiPartCount() const;
    /// The sub-part at `index`, still owned by this part; null when there is none.
    EMAIL_MultiPart* getSubMultiPart(int index) const;
    /// Takes ownership of `part`, which must be on the heap, and inserts it before `index`; an
    /// index outside the list appends. False for null. The parent of `part` is not changed.
    bool addSubMultiPart(const EMAIL_MultiPart* part, int index);
    /// Removes and deletes the sub-part at `index`; false when there is none.
    bool removeSubPart(int index);

    // Media type (RFC 2045, section 5), as text and as number; each setter sets both. The text is
    // what is written, the number what is tested. 0 stands for an unknown name.

    void setType(int type);
    void setTypeStr(const QString& name);
    int getType() const { return mTypeEnum; }
    const QString& getTypeStr() const { return mTypeStr; }
    void setSubType(int subType);
    void setSubTypeStr(const QString& name);
    int getSubType() const { return mSubTypeEnum; }
    const QString& getSubTypeStr() const { return mSubTypeStr; }

    // Plain values, stored and returned as they are.

    /// The transfer encoding (`EMAIL_CTE`); `CTE_UNKNOWN`: not set, chosen with the body.
    void setCTE(int cte) { mCTE = cte; }
    int getCTE() const { return mCTE; }
    /// The charset (`EMAIL_Charset`); `CHARSET_UNKNOWN`: not set.
    void setCharset(int charset) { mCharset = charset; }
    int getCharset() const { return mCharset; }
    /// The "name" parameter of Content-Type.
    void setName(const QString& name) { mName = name; }
    const QString& getName() const { return mName; }
    /// The file name of Content-Disposition (RFC 2183).
    void setDispFileName(const QString& fileName) { mDispFileName = fileName; }
    const QString& getDispFileName() const { return mDispFileName; }
    /// 1 for an attachment, 0 for inline; written only together with a file name.
    void setDispType(int dispType) { mDispType = dispType; }
    int getDispType() const { return mDispType; }
    void setDescription(const QString& description) { mDescription = description; }
    const QString& getDescription() const { return mDescription; }
    void setLocation(const QString& location) { mLocation = location; }
    const QString& getLocation() const { return mLocation; }
    /// Content-Id, angle brackets included.
    void setID(const QString& id) { mID = id; }
    const QString& getID() const { return mID; }
    /// The "method" parameter of a calendar part (RFC 6047, section 2.4).
    void setMethod(const QString& method) { mMethod = method; }
    QString getMethod() const { return mMethod; }
    EMAIL_MultiPart* getParent() const { return mParent; }

    // Download state, as announced by the server.

    void setASAttName(const QString& name) { mASAttName = name; }
    QString getASAttName() const { return mASAttName; }
    /// In bytes; -1 means none, and a new part has 0, which is written.
    void setAttSize(int size) { mAttSize = size; }
    int getAttSize() const { return mAttSize; }
    void setAttDownloaded() { mAttDownloaded = true; }
    void setNoAttDownloaded() { mAttDownloaded = false; }
    bool isAttDownloaded() const { return mAttDownloaded; }
    /// The part's identifier on the server.
    void setPartID(QString id) { mPartID = std::move(id); }
    QString getPartID() const { return mPartID; }

    /// The boundary that a container was read with; writing makes a fresh one.
    void setBoundary(const QString& boundary) { mBoundary = boundary; }
    /// The member itself.
    QString& getBoundary() { return mBoundary; }

    // The body. A setter switches between memory and file and leaves the other's members alone.
    //
    // A body of 2^31 - 64 bytes and more, or one that there is no memory to encode, is refused: the
    // part then has no bytes, and no message that takes it can be assembled, until a body is set
    // again.

    bool isInMemory() const { return mInMemory; }
    /// Makes `data` the body: as it is when `isEncoded`, else in the part's transfer encoding,
    /// which is chosen to fit the data when none is set.
    ///
    /// 1. Empty data sets the length to 0 but keeps the bytes of an earlier body.
    /// 2. The length is that of `data`, also when the stored bytes are longer through encoding.
    void setBody(const QByteArray& data, bool isEncoded);
    /// Makes `text` the body, transfer-encoded: with `useCharset` in the part's charset, which
    /// becomes UTF-8 when it cannot hold the text, else as Latin-1. An empty text sets the length
    /// to 0 but keeps the bytes of an earlier body.
    ///
    /// 1. The text ends at U+0000.
    void setBody(const QString& text, bool useCharset);
    /// Makes `length` bytes at `offset` of the file `path` the body. Unless they are encoded
    /// already or an encoding is set, one is chosen that fits them. Returns 0, or -1 when the range
    /// cannot be read for that; the values are stored all the same.
    int setBodyInfo(const QString& path, int offset, int length, bool isEncoded);
    void getBodyInfo(QString& path, int& offset, int& length, bool& isEncoded) const;
    /// The size to show, in bytes: for base64 an estimate of the decoded size, else the length.
    int getSize() const;
    /// The decoded bytes of a body in memory; empty for a body in a file.
    QByteArray getBody() const;
    /// Writes the decoded body to an open file. Returns 0, or -1 when the body cannot be read, the
    /// file does not take it or `progress` stops.
    ///
    /// 1. Only a body in a file is written in blocks that ask `progress`; one in memory goes out at
    ///    once.
    int getBody(QFile* out, const ProgressCallback& progress = nullptr) const;
    /// Fills `text` with the body as text, in the part's charset or, where none is set, in
    /// `defaultCharset`. Returns 0, or -1 when the file cannot be read. A body of which decoding
    /// leaves nothing leaves `text` alone.
    int getTextBody(QString& text, int defaultCharset) const;

    /// Forgets the download state of this part and of all parts below it, so that it is not
    /// written; part identifiers are kept. Where memory for the walk runs out, it ends.
    void makeHeaderSendable();

    QString mTypeStr;
    int mTypeEnum = 0;
    QString mSubTypeStr;
    int mSubTypeEnum = 0;
    int mCTE = 0;
    int mCharset = 0;
    QString mName;
    QString mDispFileName;
    int mDispType = 0;
    QString mDescription;
    QString mLocation;
    QString mID;
    /// The bytes of a body in memory, transfer-encoded.
    QByteArray mBodyData;
    /// The sub-parts in order; owned.
    QPtrList<EMAIL_MultiPart> mSubParts;
    /// The containing part, not owned; null at the top.
    EMAIL_MultiPart* mParent = nullptr;
    QString mBodyFile;
    int mBodyOffset = 0;
    int mBodyLength = 0;
    bool mInMemory = true;
    /// Whether the body is in the part's transfer encoding already.
    bool mEncoded = false;
    bool mAttDownloaded = true;
    QString mMethod;
    QString mASAttName;
    int mAttSize = 0;
    QString mPartID;
    QString mBoundary;

private:
    void copyMembers(const EMAIL_MultiPart& other);
};
