// SPDX-License-Identifier: MIT
// One variable of each public class: the debugging information of this file holds the layouts.
#include "types/QCString.h"
#include "types/QPtrList.h"
#include "types/QValueList.h"
#include "utility/EMAIL_AddrList.h"
#include "utility/EMAIL_BaseComponent.h"
#include "utility/EMAIL_BasicMsg.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_DateTime.h"
#include "utility/EMAIL_DispositionType.h"
#include "utility/EMAIL_Entity.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"
#include "utility/EMAIL_Util.h"

struct Layouts
{
    QCString* text;
    QPtrList<EMAIL_Field>* pointers;
    QValueList<QCString>* values;
    EMAIL_AddrList* addresses;
    EMAIL_Address* address;
    EMAIL_BaseComponent* component;
    EMAIL_BasicMsg* basicMessage;
    EMAIL_Body* body;
    EMAIL_BodyPart* bodyPart;
    EMAIL_ContentType* contentType;
    EMAIL_DateTime* dateTime;
    EMAIL_DispositionType* disposition;
    EMAIL_Entity* entity;
    EMAIL_Field* field;
    EMAIL_Header* header;
    EMAIL_MIME* mime;
    EMAIL_Message* message;
    EMAIL_MultiPart* part;
    EMAIL_Util* util;
};

__attribute__((visibility("default"))) Layouts* layouts = nullptr;
