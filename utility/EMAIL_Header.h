// SPDX-License-Identifier: MIT
#pragma once

#include "types/QPtrList.h"
#include "utility/EMAIL_BaseComponent.h"

class EMAIL_AddrList;
class EMAIL_ContentType;
class EMAIL_DateTime;
class EMAIL_DispositionType;
class EMAIL_Field;

/// The header of an entity: an ordered list of fields (RFC 5322, section 2.2).
///
/// Lookups ignore the case of ASCII letters and take the first field of a name. Values are stored
/// as given and read as stored: encoded words and charsets are the message API's business. No
/// operation reports an error; what a missing field reads as is said at each getter.
class TARVOMIME_EXPORT EMAIL_Header : public EMAIL_BaseComponent
{
public:
    EMAIL_Header();
    EMAIL_Header(const QCString& text, EMAIL_BaseComponent* parent);

    ~EMAIL_Header() override;
    /// Assembles every field; From, To, Date and Subject (the first of each) come first, all other
    /// fields follow in list order. Fields with an empty body are left out. A header that would be
    /// too long, or of which a field could not be built, gives an empty text, and the assembly of
    /// its entity fails.
    void assemble() override;
    /// Cuts `mString` into logical lines and appends a field for each to the list; fields that are
    /// already there stay. A line without ":" is a field with that name and an empty body.
    void parse() override;

    /// The first field of that name, or null.
    EMAIL_Field* getField(const QCString& name) const;
    /// The first field of that name, or a new one appended at the end; never null.
    EMAIL_Field* field(const QCString& name);
    /// Takes ownership of `f` and appends it, removing (and deleting) the first field of its name
    /// before. `f` must not be in this header yet; null is ignored.
    ///
    /// A field of another class than belongs to its name is written as it is, and the typed getters
    /// take it for absent. It is deleted once a typed value is written under its name: the typed
    /// field then takes its place and its text over.
    void addField(EMAIL_Field* f);
    /// Removes and deletes the first field of that name, if there is one.
    void removeField(const QCString& name);
    /// A new field, owned by the caller, of the class and with the spelling that belong to `name`;
    /// its parent is this header. A name that is not known gives a plain field of exactly that
    /// name.
    EMAIL_Field* createField(const QCString& name);
    /// Copies `in` without leading SP, HTAB, CR and LF to `out`; an empty `in` leaves `out` alone.
    ///
    /// 1. Nothing is ever removed from the end: the test for trailing white space looks at the
    ///    first character that is kept, and stored values rely on their ends.
    static void stripCFWS(const QCString& in, QCString& out);

    // Typed fields, parsed on first access; null when absent. The header keeps ownership.
    EMAIL_AddrList* getTo() const;
    EMAIL_AddrList* getCc() const;
    EMAIL_AddrList* getBcc() const;
    EMAIL_AddrList* getFrom() const;
    EMAIL_AddrList* getSender() const;
    EMAIL_AddrList* getReplyTo() const;
    EMAIL_DateTime* getDate() const;
    EMAIL_ContentType* getContentType() const;
    EMAIL_DispositionType* getContentDisposition() const;
    /// The Content-Type field, parsed; created empty (text/plain) when absent.
    EMAIL_ContentType* contentType();
    /// The Content-Disposition field as it is, not parsed here; created empty when absent.
    EMAIL_DispositionType* contentDisposition();

    // The body of a field as stored; an empty text when the field is absent.
    QCString getSubject() const;
    QCString getXMailer() const;
    QCString getContentId() const;
    QCString getContentDescription() const;
    QCString getContentLocation() const;
    QCString getMimeVersion() const;

    // Each creates its field at the end of the list when it is missing, and replaces its body.
    void setTo(const QCString& value);
    void setCc(const QCString& value);
    void setBcc(const QCString& value);
    void setFrom(const QCString& value);
    void setSender(const QCString& value);
    void setReplyTo(const QCString& value);
    void setContentDescription(const QCString& value);
    void setSubject(const QCString& value);
    void setXMailer(const QCString& value);
    void setXPriority(const QCString& value);
    void setContentId(const QCString& value);
    void setMimeVersion(const QCString& value);
    void setContentLocation(const QCString& value);
    /// Sets the Date field to `t` seconds since the epoch; 0 means now.
    void setDate(unsigned long t);
    /// Sets Content-Transfer-Encoding by its number (`CTE_BASE64`, ...), to "7bit" for one that is
    /// not known.
    void setCte(int cte);

    /// The transfer encoding's number; `CTE_7BIT` when the field is absent, `CTE_UNKNOWN` when its
    /// value is not known.
    int getCte() const;
    /// X-Priority as a number, a trailing comment in parentheses aside; 3 when absent or
    /// unreadable. The range is not checked.
    unsigned int getXPriority() const;
    /// The "method" parameter of Content-Type, double quotes trimmed; the field is created when
    /// missing, and then gives an empty text.
    QCString getMethod();
    /// Sets the "method" parameter of Content-Type, creating the field when it is missing.
    void setMethod(const QCString& method);

    /// Removes the private bookkeeping fields that must not leave the phone, and "Bcc" on request.
    ///
    /// 1. "X-QRN-AS-Attn-Size" and "X-MESSAGE-PARTID" stay: the mail store still finds its parts by
    ///    them after sending.
    void asSendable(bool removeBcc);

    // Private bookkeeping fields. Integers are read with white space around them and an optional
    // sign; `ok`, where given, tells whether the text was a number.

    /// "X-MESSAGE-PARTID": which part of a server message this entity stands for; null when absent.
    QCString getPartID() const;
    void setPartID(const QCString& id);
    /// "X-QRN-AS-Attn-Size" in bytes: -1 when absent, 0 when it is not a number.
    int getAttSize() const;
    void setAttSize(int size);
    /// "X-QRN-AS-Attn-Name"; "" when absent.
    QCString getASAttName() const;
    void setASAttName(const QCString& name);
    /// True exactly when "X-QRN-AS-Attn-Undownload" is absent; its value is not looked at.
    bool isAttDownloaded() const;
    void setAttUndownloaded();
    /// "X-QRN-Message-Body-Size" in bytes; 0 with `ok` false when absent.
    int getBodySize(bool* ok = nullptr) const;
    void setBodySize(int size);
    /// "X-QRN-Message-Body-Truncated".
    ///
    /// 1. Absent, it reads as -1 with `ok` true, unlike the other numbers: "not truncated" is an
    ///    answer, not a failure.
    int getBodyTruncated(bool* ok = nullptr) const;
    void setBodyTruncated(int marker);
    void removeBodyTruncatedInfo();
    /// Replaces the four smart-send fields by new ones at the end of the list.
    void setSmartSendInfo(unsigned int refFolderId, unsigned int refMessageId,
                          unsigned int dataLength, int type);
    /// 0 with `ok` false when absent.
    unsigned int getSmartSendRefFolderID(bool* ok = nullptr) const;
    unsigned int getSmartSendRefMessageID(bool* ok = nullptr) const;
    unsigned int getSmartSendDataLength(bool* ok = nullptr) const;
    /// 0 with `ok` left alone when absent.
    int getSmartSendType(bool* ok = nullptr) const;
    /// The smart-send type; -1 when absent or not a number.
    int getOperation() const;
    void removeSmartDataInfo();
    /// The short header text that accompanies smart-send data.
    ///
    /// 1. The To line replaces the From line instead of following it: the server knows who sends.
    /// 2. Content-Type is rewritten to text/plain in utf-8 and stays so in this header.
    /// 3. It is empty where one of its lines, or all of them together, would be too long.
    QCString getSmartData();

    /// The fields in order; owned by the list.
    QPtrList<EMAIL_Field> mFields;

    /// Makes `mFields` own its fields; every constructor calls it.
    void init();
};
