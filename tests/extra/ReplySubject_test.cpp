// SPDX-License-Identifier: MIT
#include "extra/ReplySubject.h"

#include <gtest/gtest.h>

namespace reply_subject_test {

using namespace tarvomime;

namespace {

struct SubjectRow
{
    const char* name;
    const char* subject;
    const char* reply;
    const char* forward;
    const char* base;
};

class ReplySubject : public testing::TestWithParam<SubjectRow>
{
};

} // namespace

TEST_P(ReplySubject, HasOnePrefix)
{
    const QString subject = QString::fromUtf8(GetParam().subject);
    EXPECT_EQ(replySubject(subject).toUtf8(), GetParam().reply) << GetParam().subject;
    EXPECT_EQ(forwardSubject(subject).toUtf8(), GetParam().forward) << GetParam().subject;
    EXPECT_EQ(baseSubject(subject).toUtf8(), GetParam().base) << GetParam().subject;
}

TEST_P(ReplySubject, IsSettled)
{
    const QString subject = QString::fromUtf8(GetParam().subject);
    EXPECT_EQ(replySubject(replySubject(subject)), replySubject(subject));
    EXPECT_EQ(forwardSubject(forwardSubject(subject)), forwardSubject(subject));
}

INSTANTIATE_TEST_SUITE_P(
    Extra, ReplySubject,
    testing::Values(
        SubjectRow{"Plain", "Tea", "Re: Tea", "Fwd: Tea", "Tea"},
        SubjectRow{"Empty", "", "Re: ", "Fwd: ", ""},
        SubjectRow{"Re", "Re: Tea", "Re: Tea", "Fwd: Re: Tea", "Tea"},
        SubjectRow{"Upper", "RE: Tea", "Re: Tea", "Fwd: RE: Tea", "Tea"},
        SubjectRow{"Many", "Re: RE: re:Tea", "Re: Tea", "Fwd: Re: RE: re:Tea", "Tea"},
        SubjectRow{"Counter", "Re[2]: Tea", "Re: Tea", "Fwd: Re[2]: Tea", "Tea"},
        SubjectRow{"RoundCounter", "Re(3): Tea", "Re: Tea", "Fwd: Re(3): Tea", "Tea"},
        SubjectRow{"PowerCounter", "Re^4: Tea", "Re: Tea", "Fwd: Re^4: Tea", "Tea"},
        SubjectRow{"BareCounter", "Re2: Tea", "Re: Tea", "Fwd: Re2: Tea", "Tea"},
        SubjectRow{"BlankBeforeColon", "RE : Tea", "Re: Tea", "Fwd: RE : Tea", "Tea"},
        SubjectRow{"German", "AW: WG: Tee", "Re: WG: Tee", "Fwd: AW: WG: Tee", "Tee"},
        SubjectRow{"GermanForward", "WG: AW: Tee", "Re: WG: AW: Tee", "Fwd: AW: Tee", "Tee"},
        SubjectRow{"Swedish", "SV: VB: Te", "Re: VB: Te", "Fwd: SV: VB: Te", "Te"},
        SubjectRow{"Finnish", "VS: VL: Tee", "Re: VL: Tee", "Fwd: VS: VL: Tee", "Tee"},
        SubjectRow{"Dutch", "Antw: Doorst: Thee", "Re: Doorst: Thee", "Fwd: Antw: Doorst: Thee",
                   "Thee"},
        SubjectRow{"French", "Réf: TR: Thé", "Re: TR: Thé", "Fwd: Réf: TR: Thé", "Thé"},
        SubjectRow{"Polish", "Odp: PD: Herbata", "Re: PD: Herbata", "Fwd: Odp: PD: Herbata",
                   "Herbata"},
        SubjectRow{"Chinese", "回复：转发：茶", "Re: 转发：茶", "Fwd: 回复：转发：茶", "茶"},
        SubjectRow{"Forwarded", "Fwd: FW: Tea", "Re: Fwd: FW: Tea", "Fwd: Tea", "Tea"},
        SubjectRow{"List", "[tea] Re: Green", "Re: [tea] Green", "Fwd: [tea] Re: Green",
                   "[tea] Green"},
        SubjectRow{"ListBehind", "Re: [tea] Re: Green", "Re: [tea] Green",
                   "Fwd: Re: [tea] Re: Green", "[tea] Green"},
        SubjectRow{"MarkOnly", "[tea]", "Re: [tea]", "Fwd: [tea]", "[tea]"},
        SubjectRow{"OpenMark", "[tea Re: x", "Re: [tea Re: x", "Fwd: [tea Re: x", "[tea Re: x"},
        SubjectRow{"LikeAPrefix", "Research: tea", "Re: Research: tea", "Fwd: Research: tea",
                   "Research: tea"},
        SubjectRow{"NoColon", "Re tea", "Re: Re tea", "Fwd: Re tea", "Re tea"},
        SubjectRow{"PrefixOnly", "Re:", "Re: ", "Fwd: Re:", ""},
        SubjectRow{"Inside", "Tea Re: x", "Re: Tea Re: x", "Fwd: Tea Re: x", "Tea Re: x"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ReplySubjectFlood, IsLinear)
{
    EXPECT_EQ(baseSubject(QString("Re: ").repeated(200000) + "x"), "x");
    EXPECT_EQ(replySubject(QString("[").repeated(200000)).size(), 200004);
}

} // namespace reply_subject_test
