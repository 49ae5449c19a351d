// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"
#include "types/TarvomimeExport.h"
// Applications have always got EMAIL_Util with this header.
#include "utility/EMAIL_Util.h"

#include <QByteArray>
#include <QString>

class EMAIL_ContentType;
class EMAIL_Header;
class EMAIL_Message;
class QFile;

/// The application's handle on one message: one header and one body (RFC 5322).
///
/// Values go in and out as Unicode. Reading decodes encoded words (RFC 2047), transfer encodings
/// and charsets; writing chooses and applies them. Nothing is written as text before `assemble()`.
///
/// A `charset` argument of a getter is the charset (`EMAIL_Charset`) of 8-bit text that does not
/// declare one. Absent fields read as an empty string unless a getter says otherwise; getters never
/// fail. A handle without a message (`mMessage` null) reads as an empty message, ignores setters,
/// and neither parses nor assembles a file. Handles are not copied.
class TARVOMIME_EXPORT EMAIL_BasicMsg
{
public:
    /// A new, empty message.
    EMAIL_BasicMsg();
    /// Parses `raw`, taken as Latin-1: each character stands for one byte of the message.
    explicit EMAIL_BasicMsg(const QString& raw);
    /// Parses the bytes of `raw` up to the first NUL. In memory, every part of the tree is a slice
    /// of these bytes.
    explicit EMAIL_BasicMsg(const QByteArray& raw);
    EMAIL_BasicMsg(const EMAIL_BasicMsg&) = delete;
    EMAIL_BasicMsg& operator=(const EMAIL_BasicMsg&) = delete;

    /// Deletes the message with everything below it.
    virtual ~EMAIL_BasicMsg();
    /// Sets the fields that every message of this client carries: X-Mailer and Mime-Version.
    /// Constructors do not call it.
    virtual void setDefaultFileds();

    // The whole message.

    /// Parses the message stored in the file `path`; bodies stay ranges of that file, which must
    /// keep its content as long as they are read. Meant for a new handle: the fields are appended
    /// to those that are already there. Returns 0, or -1 with nothing changed when the file cannot
    /// be opened for reading and writing or mapped.
    int parse(const QString& path);
    /// Assembles header and body, all the way down, and returns the text, which is empty where that
    /// fails. The reference is valid as long as the message; file-backed bodies are not part of the
    /// text.
    const QCString& assemble();
    /// Assembles into an open file, file-backed bodies included. Returns 0, or -1 when the file
    /// does not take the text or a body cannot be read.
    int assemble(QFile* file);
    /// The header's text as last parsed or assembled; nothing is assembled here.
    QString headerAsString() const;
    /// Length of the raw text or file that this handle was built from; 0 for a new message.
    int getMessageLength() const;
    /// The header, owned by the message; null only for a handle without a message.
    EMAIL_Header* getHeader() const;
    /// Parses `text` into the header.
    ///
    /// 1. The fields are appended to those that are already there: lookups, which take the first
    ///    field of a name, keep finding the older ones.
    void setHeader(const QCString& text);
    /// Removes Bcc and the private bookkeeping fields that must not leave the phone from the
    /// message's own header; see `EMAIL_Header::asSendable` for those that stay.
    void makeHeaderSendable();

    // Addresses and subject (RFC 5322, sections 3.6.2, 3.6.3 and 3.6.5). Getters decode the stored
    // body of the first field of the name as a whole and leave the field as it is. Setters encode
    // with `mCharset`, or UTF-8 where it cannot hold the value: of an address list only the display
    // names.
    //
    // 1. Reply-To is encoded as one text, like Subject, not address by address: with a non-ASCII
    //    value the addresses themselves go into the encoded words. Stored mail is written this way.

    QString getFrom(int charset) const;
    void setFrom(const QString& addresses);
    QString getTo(int charset) const;
    void setTo(const QString& addresses);
    QString getCc(int charset) const;
    void setCc(const QString& addresses);
    QString getBcc(int charset) const;
    void setBcc(const QString& addresses);
    QString getReplyTo(int charset) const;
    void setReplyTo(const QString& addresses);
    /// Undeclared 8-bit text is read as GB2312.
    QString getSender() const;
    void setSender(const QString& address);
    QString getSubject(int charset) const;
    void setSubject(const QString& subject);

    // Other header values. Those without encoding are written and read as Latin-1.

    QString getXMailer() const;
    void setXMailer(const QString& value);
    QString getMimeVersion() const;
    void setMimeVersion(const QString& value);
    /// The date in seconds since the epoch; 0 without a Date field.
    unsigned long getDate() const;
    /// Sets the date; 0 means now.
    void setDate(unsigned long seconds);
    /// The body of the Date field as written.
    QString getRawDateStr() const;
    /// The date as a message list shows it (`EMAIL_Util::convertTimeFormat`).
    QString getDateStr() const;
    /// 1 (high), 3 (normal) or 5 (low); 3 without the field.
    int getXPriority() const;
    /// Writes 1 for values up to 2, 3 for 3 and 4, and 5 above.
    void setXPriority(int priority);

    // Content-Type and its parameters (RFC 2045, section 5). Setters create the field.

    /// The media type and subtype as numbers; 0 without the field or for an unknown name.
    int getType() const;
    void setType(int type);
    int getSubType() const;
    void setSubType(int subType);
    QString getTypeStr() const;
    void setTypeStr(const QString& name);
    QString getSubTypeStr() const;
    void setSubTypeStr(const QString& name);
    /// The charset's number: `CHARSET_US_ASCII` without the field, `CHARSET_UNKNOWN` for a field
    /// without a charset or with one that is not known.
    int getCharset() const;
    void setCharset(int charset);
    /// The transfer encoding's number: `CTE_7BIT` without the field, `CTE_UNKNOWN` for a value that
    /// is not known.
    int getCTE() const;
    void setCTE(int cte);
    /// The "method" parameter of an invitation, in lower case.
    ///
    /// 1. Reading creates a missing Content-Type field, which is then written as text/plain.
    QString getMethod() const;
    void setMethod(const QString& method);
    /// The "name" parameter of Content-Type.
    QString getFileName(int charset) const;
    /// The file name of Content-Disposition (RFC 2183).
    QString getName(int charset) const;

    // Receipts and private bookkeeping.

    /// Asks for a read receipt to `address`, in both the current and the older field; the address
    /// is not encoded.
    void addReceiptRequest(const QString& address);
    void removeReceiptRequest();
    /// 1 with the address in `out` when a read receipt was asked for; else 0, `out` left alone.
    int needReadReceipt(QCString& out) const;
    /// Whether a delivery status notification is wanted.
    bool getXSendDsn() const;
    void setXSendDsn(bool on);
    /// Refers to a message kept on the server, whose text the server adds on sending.
    void setSmartSendInfo(unsigned int refFolderId, unsigned int refMessageId,
                          unsigned int dataLength, int type);
    /// Fills all four, with 0 for absent or unreadable values. Returns 0.
    int getSmartSendInfo(unsigned int& refFolderId, unsigned int& refMessageId,
                         unsigned int& dataLength, int& type) const;
    /// The smart-send operation; -1 when absent or not a number.
    int getOperation() const;
    void removeSmartDataInfo();
    /// The full size of a body that was cut short on download; 0 with `ok` false when absent.
    int getBodySize(bool* ok = nullptr) const;
    void setBodySize(unsigned int size);
    /// The truncation marker; -1 with `ok` true when absent.
    int getBodyTruncated(bool* ok = nullptr) const;
    void setBodyTruncated(int marker);
    void removeBodyTruncatedInfo();

    // The body.

    /// Makes `text` the body.
    ///
    /// With `encode` set, ASCII text is stored as it is: us-ascii, without transfer encoding. Other
    /// text is converted with the message's charset, or UTF-8 where that cannot hold it, and gets
    /// a transfer encoding; every byte of the conversion is kept, NUL included. A message without a
    /// type becomes text/plain. Without `encode` the Latin-1 bytes are stored and no field changes.
    /// An empty text empties the body and changes nothing else.
    void setBody(const QString& text, bool encode);
    /// Makes `data` the body, in the message's transfer encoding or, for 7bit, one that fits the
    /// data. A message without a type becomes application/octet-stream.
    ///
    /// 1. Empty data changes nothing.
    /// 2. For a multipart or message type nothing happens: such bodies are built from parts.
    void setBody(const QByteArray& data);
    /// The text of a body in memory; empty for a body in a file. `charset` counts where the message
    /// names none that is known.
    QString getBody(int charset) const;
    /// Fills `out` with the text of the body, in memory or in a file. Returns 0, or -1 with `out`
    /// left alone when the file cannot be read. A body in a file of which decoding leaves nothing
    /// leaves `out` alone too.
    int getBody(QString& out, int charset) const;
    /// Writes the body's bytes, transfer encoding undone, to an open file. Returns 0, or -1 when
    /// the body cannot be read, the file does not take it or `cb` stops.
    ///
    /// 1. Only a body in a file is written in blocks that ask `cb`; one in memory goes out at once.
    int getBody(QFile* file, const ProgressCallback& cb = nullptr) const;
    bool isBodyInMemory() const;
    /// Where a file-backed body lies: `length` bytes at `offset` of `path`; `encoded` tells whether
    /// they are in the message's transfer encoding already.
    void getBodyInfo(QString& path, int& offset, int& length, bool& encoded) const;
    /// Makes a range of a file the body; the file is read when the body is.
    void setBodyInfo(const QString& path, int offset, int length, bool encoded);

    /// A reply-style copy: a new message with the From, To, Cc, Bcc, date and Subject of `raw` and
    /// with `body`, assembled. `charset` is that of undeclared 8-bit text in `raw`. Null, and a
    /// text of more than `QCString::longestLength` bytes, give an empty text.
    ///
    /// 1. No other field of `raw` is carried over, not even Message-ID or Content-Type.
    /// 2. A `raw` without a date gets the current one.
    static QCString newMessage(const char* raw, const QString& body, int charset);

    /// The charset that header values are encoded with; `CHARSET_UTF_8`.
    int mCharset = CHARSET_UTF_8;

private:
    // Where in a long header the Content-Type was found last. It lies in a gap of the layout.
    mutable int mTypePosition = 0;

public:
    /// The message; owned.
    EMAIL_Message* mMessage = nullptr;
    /// Length of the raw text or file that this handle was built from.
    int mLength = 0;

private:
    friend class EMAIL_MIME;

    EMAIL_ContentType* contentTypeField() const;
    void setEncodedText(const QString& text);
    QString decodeBodyText(const QCString& text, int charset) const;
    int writeBodyFromFile(QFile* file, const ProgressCallback& cb) const;
};
