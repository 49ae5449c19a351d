// SPDX-License-Identifier: MIT
#include "extra/CodecNames.h"

#include "types/Ascii.h"

#include <string>
#include <string_view>

namespace tarvomime {

namespace {

// Letters and digits of all names and aliases that Qt's own codecs and those of ICU answer to,
// sorted, each between blanks.
constexpr std::string_view kNames =
    " 037 1026 1047 1089 1383 273 277 278 280 284 285 297 420 424 437 500 5601 646 775 819 838"
    " 850 851 852 855 857 860 861 862 863 865 866 868 869 871 88591 885913 885915 88592 88593"
    " 88594 88595 88596 88597 88598 88599 912 913 914 915 920 921 923 970 adobestandardencoding"
    " ansi1251 ansix341968 ansix341986 arabic ascii ascii7 asmo708 big5 big5hk big5hkscs bocu1"
    " ccsid00858 ccsid01140 ccsid01141 ccsid01142 ccsid01143 ccsid01144 ccsid01145 ccsid01146"
    " ccsid01147 ccsid01148 ccsid01149 cesu8 chinese cp00858 cp01140 cp01141 cp01142 cp01143"
    " cp01144 cp01145 cp01146 cp01147 cp01148 cp01149 cp037 cp1026 cp1047 cp1089 cp1140 cp1141"
    " cp1142 cp1143 cp1144 cp1145 cp1146 cp1147 cp1148 cp1149 cp1200 cp1201 cp1208 cp1250 cp1251"
    " cp1252 cp1253 cp1254 cp1255 cp1256 cp1257 cp1258 cp1363 cp1383 cp273 cp277 cp278 cp280"
    " cp284 cp285 cp290 cp297 cp367 cp37 cp420 cp424 cp437 cp500 cp775 cp819 cp838 cp850 cp851"
    " cp852 cp855 cp857 cp858 cp860 cp861 cp862 cp863 cp864 cp865 cp866 cp868 cp869 cp870 cp871"
    " cp874 cp878 cp912 cp913 cp914 cp915 cp918 cp920 cp921 cp923 cp932 cp936 cp943c cp970 cpar"
    " cpgr cpibm284 cpibm285 cpibm297 cpibm37 cpis csadobestandardencoding csascii csbig5"
    " csbocu1 cseuckr cseucpkdfmtjapanese csgb2312 cshproman8 csibm037 csibm1026 csibm273"
    " csibm277 csibm278 csibm280 csibm284 csibm285 csibm290 csibm297 csibm420 csibm424 csibm500"
    " csibm855 csibm857 csibm860 csibm861 csibm863 csibm864 csibm865 csibm866 csibm868 csibm869"
    " csibm870 csibm871 csibm918 csibmthai csiso2022cn csiso2022jp csiso2022jp2 csiso2022kr"
    " csiso58gb231280 csisolatin0 csisolatin1 csisolatin2 csisolatin3 csisolatin4 csisolatin5"
    " csisolatin6 csisolatin9 csisolatinarabic csisolatincyrillic csisolatingreek"
    " csisolatinhebrew csjisencoding cskoi8r csksc56011987 csmacintosh cspc775baltic"
    " cspc850multilingual cspc851 cspc862latinhebrew cspc8codepage437 cspcp852 cspcp855"
    " csshiftjis csucs4 csunicode cswindows31j cyrillic dos862 ebcdiccpar1 ebcdiccpar2"
    " ebcdiccpbe ebcdiccpca ebcdiccpch ebcdiccpdk ebcdiccpes ebcdiccpfi ebcdiccpfr ebcdiccpgb"
    " ebcdiccphe ebcdiccpis ebcdiccpit ebcdiccpnl ebcdiccpno ebcdiccproece ebcdiccpse ebcdiccpus"
    " ebcdiccpwt ebcdiccpyu ebcdicde ebcdicde273euro ebcdicdk ebcdicdk277euro ebcdices284euro"
    " ebcdicfi278euro ebcdicfr297euro ebcdicgb ebcdicgb285euro ebcdicinternational500euro"
    " ebcdicis ebcdicis871euro ebcdicit280euro ebcdicjpkana ebcdicno277euro ebcdicse278euro"
    " ebcdicsv ebcdicus37euro ecma114 ecma118 ecma128 elot928 euccn eucjis eucjp eucjp2007 euckr"
    " extendedunixcodepackedformatforjapanese gb18030 gb2312 gb23121980 gb231219800 gb231280 gbk"
    " greek greek8 hebrew hebrew8 hkscsbig5 hp15cn hproman8 hz hzgb2312 ibm00858 ibm01140"
    " ibm01141 ibm01142 ibm01143 ibm01144 ibm01145 ibm01146 ibm01147 ibm01148 ibm01149 ibm037"
    " ibm1026 ibm1026p1001995 ibm1047 ibm1047p1001995 ibm1051 ibm1051p1001995 ibm1089"
    " ibm1089p1001995 ibm1140 ibm1140p1001997 ibm1141 ibm1141p1001997 ibm1142 ibm1142p1001997"
    " ibm1143 ibm1143p1001997 ibm1144 ibm1144p1001997 ibm1145 ibm1145p1001997 ibm1146"
    " ibm1146p1001997 ibm1147 ibm1147p1001997 ibm1148 ibm1148p1001997 ibm1149 ibm1149p1001997"
    " ibm1168 ibm1168p1002002 ibm1200 ibm1201 ibm1202 ibm1203 ibm1204 ibm1205 ibm1208 ibm1209"
    " ibm1212 ibm1213 ibm1214 ibm1215 ibm1232 ibm1233 ibm1234 ibm1235 ibm1236 ibm1237 ibm1276"
    " ibm1276p1001995 ibm13488 ibm13489 ibm13490 ibm13491 ibm13496 ibm13497 ibm1363"
    " ibm1363p11b1998 ibm1363vsubvpua ibm1375 ibm1375p1002008 ibm1383 ibm1383p1101999"
    " ibm1383vpua ibm1392 ibm17584 ibm17585 ibm17586 ibm17587 ibm17592 ibm17593 ibm21680"
    " ibm21681 ibm21682 ibm21683 ibm25776 ibm25777 ibm25778 ibm25779 ibm273 ibm273p1001995"
    " ibm277 ibm277p1001995 ibm278 ibm278p1001995 ibm280 ibm280p1001995 ibm284 ibm284p1001995"
    " ibm285 ibm285p1001995 ibm290 ibm290p1001995 ibm297 ibm297p1001995 ibm29872 ibm29873"
    " ibm29874 ibm29875 ibm367 ibm37 ibm37p1001995 ibm420 ibm420x1201999 ibm424 ibm424p1001995"
    " ibm437 ibm437p1001995 ibm500 ibm500p1001995 ibm5012 ibm5012p1001999 ibm5054 ibm5304"
    " ibm5305 ibm5346 ibm5346p1001998 ibm5347 ibm5347p1001998 ibm5348 ibm5348p1001997 ibm5349"
    " ibm5349p1001998 ibm5350 ibm5350p1001998 ibm5354 ibm5354p1001998 ibm5478 ibm5478p1001995"
    " ibm61955 ibm61956 ibm775 ibm775p1001996 ibm819 ibm838 ibm838p1001995 ibm850 ibm850p1001995"
    " ibm851 ibm851p1001995 ibm852 ibm852p1001995 ibm855 ibm855p1001995 ibm857 ibm857p1001995"
    " ibm858 ibm858p1001997 ibm860 ibm860p1001995 ibm861 ibm861p1001995 ibm862 ibm862p1001995"
    " ibm863 ibm863p1001995 ibm864 ibm864x1101999 ibm865 ibm865p1001995 ibm866 ibm866p1001995"
    " ibm868 ibm868p1001995 ibm869 ibm869p1001995 ibm870 ibm870p1001995 ibm871 ibm871p1001995"
    " ibm874 ibm878 ibm878p1001996 ibm9005 ibm9005x1102007 ibm9030 ibm9066 ibm912 ibm912p1001995"
    " ibm913 ibm913p1002000 ibm914 ibm914p1001995 ibm915 ibm915p1001995 ibm918 ibm918p1001995"
    " ibm920 ibm920p1001995 ibm921 ibm921p1001995 ibm923 ibm923p1001998 ibm9400 ibm9424 ibm943"
    " ibm943c ibm943p15a2003 ibm943vsubvpua ibm9447 ibm9447p1002002 ibm9448 ibm9448x1002005"
    " ibm9449 ibm9449p1002002 ibm970 ibm970p110p1102006u2 ibm970vpua ibmeuccn ibmeuckr ibmthai"
    " iso10646ucs2 iso10646ucs4 iso2022cn iso2022cnext iso2022jp iso2022jp1 iso2022jp2 iso2022kr"
    " iso2022localejaversion0 iso2022localejaversion1 iso2022localejaversion2"
    " iso2022localekoversion0 iso2022localezhversion0 iso2022localezhversion1 iso646irv1983"
    " iso646irv1991 iso646us iso88591 iso885910 iso8859101992 iso8859101998 iso885911987"
    " iso885913 iso885914 iso8859141998 iso885915 iso885915fdis iso885916 iso8859162001 iso88592"
    " iso885921987 iso88593 iso885931988 iso88594 iso885941988 iso88595 iso885951988 iso88596"
    " iso885961987 iso88596e iso88596i iso88597 iso885971987 iso88598 iso885981988 iso88598e"
    " iso88598i iso88599 iso885991989 isoceltic isoir100 isoir101 isoir109 isoir110 isoir126"
    " isoir127 isoir138 isoir144 isoir148 isoir149 isoir157 isoir199 isoir226 isoir58 isoir6 jis"
    " jisencoding koi8 koi8r koi8u korean ksc ksc5601 ksc56011987 ksc56011989 l1 l10 l2 l3 l4 l5"
    " l6 l8 l9 latin0 latin1 latin10 latin2 latin3 latin4 latin5 latin6 latin8 latin9 mac macce"
    " maccentraleurope maccy maccyrillic macgr macintosh macos02102 macos29102 macos35102"
    " macos62104 macos73102 macroman mactr ms874 ms932 ms936 ms949 ms950 mskanji pck"
    " pcmultilingual850euro r8 roman8 scsu shiftjis sjis suneugreek tis620 tscii turkish"
    " turkish8 ucs2 ucs4 ujis unicode unicode11utf7 unicode11utf8 unicode20utf7 unicode20utf8"
    " unicodebigunmarked unicodelittleunmarked us usascii utf16 utf16be utf16bigendian utf16le"
    " utf16littleendian utf32 utf32be utf32bigendian utf32le utf32littleendian utf7 utf8"
    " windows10000 windows10006 windows10007 windows10029 windows10081 windows1200 windows1201"
    " windows1250 windows1251 windows1252 windows1253 windows1254 windows1255 windows1256"
    " windows1257 windows1258 windows20127 windows20866 windows21866 windows28592 windows28593"
    " windows28594 windows28595 windows28596 windows28597 windows28598 windows28599 windows28603"
    " windows28605 windows31j windows437 windows51949 windows54936 windows65000 windows65001"
    " windows775 windows850 windows852 windows855 windows857 windows858 windows861 windows862"
    " windows866 windows869 windows874 windows8742000 windows932 windows936 windows9362000"
    " windows949 windows9492000 windows950 windows9502000 xbig5 xeucjp xibm1363c xibm921 xibm970"
    " xiso2022cngb xiso88596s xjisautodetect xksc5601 xmacce xmaccentraleurope"
    " xmaccentraleurroman xmaccyrillic xmacgreek xmacroman xmacturkish xmacukraine xms9320213"
    " xmscp932 xroman8 xsjis xutf16be xutf16le xutf8j xwindows1256s xwindows50220 xwindows50221"
    " xwindows874 xwindows950 xwindowsiso2022jp"
    " ";

// The name that `at` lies in, or that ends there.
constexpr std::string_view nameAround(std::size_t at)
{
    const std::size_t start = kNames.rfind(' ', at - 1) + 1;
    return kNames.substr(start, kNames.find(' ', start) - start);
}

constexpr bool areSorted()
{
    std::string_view before;
    for (std::size_t end = kNames.find(' ', 1); end != kNames.npos;
         end = kNames.find(' ', end + 1)) {
        const std::string_view name = nameAround(end);
        if (!(before < name))
            return false;
        before = name;
    }
    return true;
}
static_assert(areSorted(), "names are looked for by halves");

} // namespace

bool isCodecName(const QByteArray& name)
{
    std::string key;
    for (const char c : name) {
        const char lower = asciiLower(c);
        if (isDigit(lower) || (lower >= 'a' && lower <= 'z'))
            key += lower;
    }
    // Blanks that a name stands between, or all of them do.
    std::size_t low = 0;
    std::size_t high = kNames.size() - 1;
    while (low < high) {
        const std::string_view middle = nameAround(low + (high - low + 1) / 2);
        if (middle == key)
            return true;
        const auto start = static_cast<std::size_t>(middle.data() - kNames.data());
        if (key < middle)
            high = start - 1;
        else
            low = start + middle.size();
    }
    return false;
}

} // namespace tarvomime
