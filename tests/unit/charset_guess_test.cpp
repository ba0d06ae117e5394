#include "formats/codepages/charset_guess.h"

#include "common/utf.h"
#include "formats/codepages/code_pages.h"
#include "formats/codepages/escaped_text.h"
#include "formats/plain/plain_text.h"
#include "formats/plain/plain_text_guess.h"
#include "text_samples.h"

#include <doctest/doctest.h>

#include <string>

namespace {
// Of a character that is one byte or two.
std::string BytesOf(int page, char16_t unit) {
    for (int bytes = 0x80; bytes < 0x10000; ++bytes) {
        const auto first = static_cast<char>(bytes >> 8), second = static_cast<char>(bytes);
        std::string sequence = first ? std::string{first, second} : std::string(1, second);
        std::u16string text;
        DecodeCodePage(page, sequence, text);
        if (text == std::u16string(1, unit)) return sequence;
    }
    FAIL("the page has no such character");
    return {};
}

// As a writer of the charset would.
std::string Encoded(int page, std::u16string_view text) {
    std::string bytes;
    for (const char16_t unit : text)
        bytes += unit < 0x80 ? std::string(1, static_cast<char>(unit)) : BytesOf(page, unit);
    return bytes;
}

std::string Decoded(const std::string& bytes, int system = 1252) {
    return Utf16ToUtf8(DecodePlainText(bytes, 0, system).text);
}

struct Sentence {
    int page;
    const char16_t* text;
};

const Sentence sentences[] = {
    {1252, u"Il \u00E9tait une fois, \u00E0 la lisi\u00E8re d\u2019une for\u00EAt tr\u00E8s"
           u" ancienne, un b\u00FBcheron et sa femme qui avaient sept gar\u00E7ons."},
    {850, u"Fr\u00FCher, als die Tage noch l\u00E4nger w\u00E4ren, sa\u00DF die Gro\u00DFm"
          u"utter am Ofen und erz\u00E4hlte sch\u00F6ne M\u00E4rchen \u00FCber K\u00F6nige"
          u"."},
    {437, u"El a\u00F1o pasado mi se\u00F1or no quer\u00EDa hablar m\u00E1s de aquella ma"
          u"\u00F1ana, pero el coraz\u00F3n le dec\u00EDa que volver\u00EDa alg\u00FAn d"
          u"\u00EDa."},
    {10000, u"Apr\u00E8s le d\u00EEner, le gar\u00E7on, fatigu\u00E9, s'\u00E9tait couch"
            u"\u00E9 pr\u00E8s de la chemin\u00E9e o\u00F9 br\u00FBlait un grand feu pr"
            u"\u00E9par\u00E9 par sa m\u00E8re."},
    {28605, u"Le c\u0153ur de sa s\u0153ur \u00E9tait plein d'\u0153illets; il n'en co\u00FB"
            u"tait que 20 \u20AC \u00E0 l'\u0153uvre de bont\u00E9 qu'elle pr\u00E9f\u00E9ra"
            u"it."},
    {1250, u"Pewnego razu \u017Cy\u0142 sobie stary m\u0142ynarz, kt\u00F3ry mia\u0142 trze"
           u"ch syn\u00F3w; najm\u0142odszy z nich by\u0142 najm\u0105drzejszy i ca\u0142ki"
           u"em weso\u0142y."},
    {28592, u"Za devatero horami \u017Eil star\u00FD kr\u00E1l a m\u011Bl t\u0159i dcery; ne"
            u"jmlad\u0161\u00ED byla nejkr\u00E1sn\u011Bj\u0161\u00ED, ale necht\u011Bla se "
            u"vd\u00E1vat."},
    {852, u"Egyszer volt, hol nem volt, volt egyszer egy szeg\u00E9ny ember, annak h\u00E1"
          u"rom fia \u00E9s egy csillagsz\u0151r\u0171 kuty\u00E1ja; j\u00F3l \u00E9ltek, "
          u"m\u00EDg el nem t\u0171nt."},
    {10029, u"Bio jednom jedan djed, koji je imao tri sina; onaj mali je \u010Desto "
            u"\u0161utio, ali je znao \u010Ditati i \u017Eurio je k izvoru."},
    {1257, u"Seniai, labai seniai gyveno senelis ir senel\u0117, kurie tur\u0117jo gra"
           u"\u017Ei\u0105 dukter\u012F; ji m\u0117go vaik\u0161\u010Dioti po \u017Eali"
           u"\u0105 mi\u0161k\u0105 ir rinkti g\u0117les."},
    {775, u"Reiz dz\u012Bvoja vecs t\u0113vs, kam bija tr\u012Bs d\u0113li; jaun\u0101kais"
          u" bija visgudr\u0101kais, bet br\u0101\u013Ci par vi\u0146u sm\u0113j\u0101s un"
          u" \u013Coti lepoj\u0101s."},
    {1254, u"Bir varm\u0131\u015F bir yokmu\u015F, evvel zaman i\u00E7inde k\u00FC\u00E7"
           u"\u00FCk bir k\u00F6yde ya\u015Fl\u0131 bir adam ile \u00FC\u00E7 o\u011Flu ya"
           u"\u015Farm\u0131\u015F; en k\u00FC\u00E7\u00FC\u011F\u00FC \u00E7ok \u00E7al"
           u"\u0131\u015Fkanm\u0131\u015F."},
    {857, u"Bir g\u00FCn padi\u015Fah o\u011Fullar\u0131n\u0131 \u00E7a\u011F\u0131rm"
          u"\u0131\u015F ve onlara demi\u015F ki: \u0131\u015F\u0131\u011F\u0131 g\u00F6re"
          u"n a\u011Fac\u0131n alt\u0131nda \u00FC\u00E7 g\u00FCn bekleyeceksiniz."},
    {28593, u"Anta\u016D longe vivis maljuna re\u011Do, kiu havis tri filojn; \u0109iu el il"
            u"i \u015Datis rajdi, sed la plej juna preferis a\u016Dskulti la birdojn \u0109e"
            u" la \u011Dardeno."},
    {1251, u"\u0416\u0438\u043B\u0438-\u0431\u044B\u043B\u0438 \u0441\u0442\u0430\u0440"
           u"\u0438\u043A \u0441\u043E \u0441\u0442\u0430\u0440\u0443\u0445\u043E\u0439 "
           u"\u0443 \u0441\u0430\u043C\u043E\u0433\u043E \u0441\u0438\u043D\u0435\u0433"
           u"\u043E \u043C\u043E\u0440\u044F, \u0438 \u0431\u044B\u043B\u043E \u0443 \u043D"
           u"\u0438\u0445 \u0442\u0440\u0438 \u0441\u044B\u043D\u0430."},
    {866, u"\u0416\u0438\u043B\u0438-\u0431\u044B\u043B\u0438 \u0441\u0442\u0430\u0440"
          u"\u0438\u043A \u0441\u043E \u0441\u0442\u0430\u0440\u0443\u0445\u043E\u0439 "
          u"\u0443 \u0441\u0430\u043C\u043E\u0433\u043E \u0441\u0438\u043D\u0435\u0433"
          u"\u043E \u043C\u043E\u0440\u044F, \u0438 \u0431\u044B\u043B\u043E \u0443 \u043D"
          u"\u0438\u0445 \u0442\u0440\u0438 \u0441\u044B\u043D\u0430."},
    {20866, u"\u0416\u0438\u043B\u0438-\u0431\u044B\u043B\u0438 \u0441\u0442\u0430\u0440"
            u"\u0438\u043A \u0441\u043E \u0441\u0442\u0430\u0440\u0443\u0445\u043E\u0439 "
            u"\u0443 \u0441\u0430\u043C\u043E\u0433\u043E \u0441\u0438\u043D\u0435\u0433"
            u"\u043E \u043C\u043E\u0440\u044F, \u0438 \u0431\u044B\u043B\u043E \u0443 \u043D"
            u"\u0438\u0445 \u0442\u0440\u0438 \u0441\u044B\u043D\u0430."},
    {21866, u"\u0416\u0438\u043B\u0438 \u0441\u043E\u0431\u0456 \u0434\u0456\u0434 \u0442"
            u"\u0430 \u0431\u0430\u0431\u0430, \u0456 \u0431\u0443\u043B\u0430 \u0432 \u043D"
            u"\u0438\u0445 \u043A\u0443\u0440\u043E\u0447\u043A\u0430 \u0440\u044F\u0431"
            u"\u0430; \u0437\u043D\u0435\u0441\u043B\u0430 \u0432\u043E\u043D\u0430 \u0457"
            u"\u043C \u044F\u0454\u0447\u043A\u043E, \u0442\u0430 \u0449\u0435 \u0439 \u043D"
            u"\u0435 \u043F\u0440\u043E\u0441\u0442\u0435, \u0430 \u0437\u043E\u043B\u043E"
            u"\u0442\u0435."},
    {28595, u"\u0411\u0438\u043E \u0458\u0435\u0434\u043D\u043E\u043C \u0458\u0435\u0434"
            u"\u0430\u043D \u0446\u0430\u0440, \u043A\u043E\u0458\u0438 \u0458\u0435 \u0438"
            u"\u043C\u0430\u043E \u0442\u0440\u0438 \u0441\u0438\u043D\u0430; \u043D\u0430"
            u"\u0458\u043C\u043B\u0430\u0452\u0438 \u0458\u0435 \u0447\u0443\u0432\u0430"
            u"\u043E \u0458\u0430\u0431\u0443\u043A\u0443 \u0443 \u0431\u0430\u0448\u0442"
            u"\u0438."},
    {10007, u"\u0418\u043C\u0430\u043B\u043E \u0435\u0434\u043D\u043E \u0432\u0440\u0435"
            u"\u043C\u0435 \u0435\u0434\u0438\u043D \u0446\u0430\u0440, \u043A\u043E\u0439"
            u"\u0442\u043E \u0438\u043C\u0430\u043B \u0442\u0440\u0438\u043C\u0430 \u0441"
            u"\u0438\u043D\u0430; \u043D\u0430\u0439-\u043C\u0430\u043B\u043A\u0438\u044F"
            u"\u0442 \u0431\u0438\u043B \u043D\u0430\u0439-\u0443\u043C\u0435\u043D \u043E"
            u"\u0442 \u0432\u0441\u0438\u0447\u043A\u0438."},
    {855, u"\u0416\u0438\u043B\u0438-\u0431\u044B\u043B\u0438 \u0441\u0442\u0430\u0440"
          u"\u0438\u043A \u0441\u043E \u0441\u0442\u0430\u0440\u0443\u0445\u043E\u0439 "
          u"\u0443 \u0441\u0430\u043C\u043E\u0433\u043E \u0441\u0438\u043D\u0435\u0433"
          u"\u043E \u043C\u043E\u0440\u044F, \u0438 \u0431\u044B\u043B\u043E \u0443 \u043D"
          u"\u0438\u0445 \u0442\u0440\u0438 \u0441\u044B\u043D\u0430."},
    {1253, u"\u039C\u03B9\u03B1 \u03C6\u03BF\u03C1\u03AC \u03BA\u03B9 \u03AD\u03BD\u03B1"
           u"\u03BD \u03BA\u03B1\u03B9\u03C1\u03CC \u03B6\u03BF\u03CD\u03C3\u03B5 \u03AD"
           u"\u03BD\u03B1\u03C2 \u03B3\u03AD\u03C1\u03BF\u03C2 \u03B2\u03B1\u03C3\u03B9"
           u"\u03BB\u03B9\u03AC\u03C2 \u03C0\u03BF\u03C5 \u03B5\u03AF\u03C7\u03B5 \u03C4"
           u"\u03C1\u03B5\u03B9\u03C2 \u03B3\u03B9\u03BF\u03C5\u03C2."},
    {737, u"\u039C\u03B9\u03B1 \u03C6\u03BF\u03C1\u03AC \u03BA\u03B9 \u03AD\u03BD\u03B1"
          u"\u03BD \u03BA\u03B1\u03B9\u03C1\u03CC \u03B6\u03BF\u03CD\u03C3\u03B5 \u03AD"
          u"\u03BD\u03B1\u03C2 \u03B3\u03AD\u03C1\u03BF\u03C2 \u03B2\u03B1\u03C3\u03B9"
          u"\u03BB\u03B9\u03AC\u03C2 \u03C0\u03BF\u03C5 \u03B5\u03AF\u03C7\u03B5 \u03C4"
          u"\u03C1\u03B5\u03B9\u03C2 \u03B3\u03B9\u03BF\u03C5\u03C2."},
    {28597, u"\u039C\u03B9\u03B1 \u03C6\u03BF\u03C1\u03AC \u03BA\u03B9 \u03AD\u03BD\u03B1"
            u"\u03BD \u03BA\u03B1\u03B9\u03C1\u03CC \u03B6\u03BF\u03CD\u03C3\u03B5 \u03AD"
            u"\u03BD\u03B1\u03C2 \u03B3\u03AD\u03C1\u03BF\u03C2 \u03B2\u03B1\u03C3\u03B9"
            u"\u03BB\u03B9\u03AC\u03C2 \u03C0\u03BF\u03C5 \u03B5\u03AF\u03C7\u03B5 \u03C4"
            u"\u03C1\u03B5\u03B9\u03C2 \u03B3\u03B9\u03BF\u03C5\u03C2. \u0386\u03BB\u03BB"
            u"\u03BF\u03B9 \u03BB\u03AD\u03BD\u03B5 \u03C0\u03C9\u03C2 \u03AE\u03C4\u03B1"
            u"\u03BD \u03B4\u03CD\u03BF."},
    {1255, u"\u05D4\u05D9\u05D4 \u05D4\u05D9\u05D4 \u05DE\u05DC\u05DA \u05D6\u05E7\u05DF "
           u"\u05D5\u05DC\u05D5 \u05E9\u05DC\u05D5\u05E9\u05D4 \u05D1\u05E0\u05D9\u05DD, "
           u"\u05D5\u05D4\u05E6\u05E2\u05D9\u05E8 \u05E9\u05D1\u05D4\u05DD \u05D4\u05D9"
           u"\u05D4 \u05D4\u05D7\u05DB\u05DD \u05DE\u05DB\u05D5\u05DC\u05DD."},
    {862, u"\u05D4\u05D9\u05D4 \u05D4\u05D9\u05D4 \u05DE\u05DC\u05DA \u05D6\u05E7\u05DF "
          u"\u05D5\u05DC\u05D5 \u05E9\u05DC\u05D5\u05E9\u05D4 \u05D1\u05E0\u05D9\u05DD, "
          u"\u05D5\u05D4\u05E6\u05E2\u05D9\u05E8 \u05E9\u05D1\u05D4\u05DD \u05D4\u05D9"
          u"\u05D4 \u05D4\u05D7\u05DB\u05DD \u05DE\u05DB\u05D5\u05DC\u05DD."},
    {1256, u"\u0643\u0627\u0646 \u064A\u0627 \u0645\u0627 \u0643\u0627\u0646 \u0641\u064A "
           u"\u0642\u062F\u064A\u0645 \u0627\u0644\u0632\u0645\u0627\u0646 \u0645\u0644"
           u"\u0643 \u0639\u062C\u0648\u0632 \u0644\u0647 \u062B\u0644\u0627\u062B\u0629 "
           u"\u0623\u0628\u0646\u0627\u0621 \u0648\u0643\u0627\u0646 \u0623\u0635\u063A"
           u"\u0631\u0647\u0645 \u0623\u0630\u0643\u0627\u0647\u0645."},
    {874, u"\u0E01\u0E32\u0E25\u0E04\u0E23\u0E31\u0E49\u0E07\u0E2B\u0E19\u0E36\u0E48\u0E07"
          u"\u0E19\u0E32\u0E19\u0E21\u0E32\u0E41\u0E25\u0E49\u0E27 \u0E21\u0E35\u0E1E"
          u"\u0E23\u0E30\u0E23\u0E32\u0E0A\u0E32\u0E2D\u0E07\u0E04\u0E4C\u0E2B\u0E19\u0E36"
          u"\u0E48\u0E07\u0E21\u0E35\u0E1E\u0E23\u0E30\u0E42\u0E2D\u0E23\u0E2A\u0E2A\u0E32"
          u"\u0E21\u0E1E\u0E23\u0E30\u0E2D\u0E07\u0E04\u0E4C"},
    {visciiPage, u"Ng\u00E0y x\u1EEDa ng\u00E0y x\u01B0a c\u00F3 m\u1ED9t \u00F4ng vua gi\u00E0, "
                 u"\u00F4ng c\u00F3 ba ng\u01B0\u1EDDi con trai, ng\u01B0\u1EDDi con \u00FAt th"
                 u"\u00F4ng minh nh\u1EA5t."},
    {tcvnPage, u"Ng\u00E0y x\u1EEDa ng\u00E0y x\u01B0a c\u00F3 m\u1ED9t \u00F4ng vua gi\u00E0, "
               u"\u00F4ng c\u00F3 ba ng\u01B0\u1EDDi con trai, ng\u01B0\u1EDDi con \u00FAt th"
               u"\u00F4ng minh nh\u1EA5t."},
    {932, u"\u3080\u304B\u3057\u3080\u304B\u3057\u3001\u3042\u308B\u3068\u3053\u308D\u306B"
          u"\u3001\u304A\u3058\u3044\u3055\u3093\u3068\u304A\u3070\u3042\u3055\u3093\u304C"
          u"\u4F4F\u3093\u3067\u3044\u307E\u3057\u305F\u3002"},
    {51932, u"\u3080\u304B\u3057\u3080\u304B\u3057\u3001\u3042\u308B\u3068\u3053\u308D\u306B"
            u"\u3001\u304A\u3058\u3044\u3055\u3093\u3068\u304A\u3070\u3042\u3055\u3093\u304C"
            u"\u4F4F\u3093\u3067\u3044\u307E\u3057\u305F\u3002"},
    {949, u"\uC61B\uB0A0 \uC61B\uC801\uC5D0 \uD638\uB791\uC774\uAC00 \uB2F4\uBC30\uB97C "
          u"\uD53C\uC6B0\uB358 \uC2DC\uC808, \uC5B4\uB290 \uB9C8\uC744\uC5D0 \uD560\uBA38"
          u"\uB2C8\uAC00 \uC0B4\uACE0 \uC788\uC5C8\uC2B5\uB2C8\uB2E4."},
    {936, u"\u4ECE\u524D\u6709\u4E00\u4E2A\u8001\u56FD\u738B\uFF0C\u4ED6\u6709\u4E09\u4E2A"
          u"\u513F\u5B50\uFF0C\u6700\u5C0F\u7684\u513F\u5B50\u6700\u806A\u660E\uFF0C\u5927"
          u"\u5BB6\u90FD\u5F88\u559C\u6B22\u4ED6\u3002"},
    {950, u"\u5F9E\u524D\u6709\u4E00\u500B\u8001\u570B\u738B\uFF0C\u4ED6\u6709\u4E09\u500B"
          u"\u5152\u5B50\uFF0C\u6700\u5C0F\u7684\u5152\u5B50\u6700\u8070\u660E\uFF0C\u5927"
          u"\u5BB6\u90FD\u5F88\u559C\u6B61\u4ED6\u3002"},
    {1125, u"Був собі дід та баба, та була в них курочка Ряба; знесла вона яєчко, не просте, "
           u"а золоте, і її ґанок світився."},
    {mikPage, u"Имало едно време един цар, който имал трима синове; най-малкият от тях бил и "
              u"най-умният, но никой не го знаел."},
    {kazakhPage, u"Ерте заманда бір қарт пен кемпір өмір сүріпті, олардың үш ұлы болыпты; кенжесі "
                 u"әрі ақылды, әрі көңілді екен."},
    {asianPage, u"Борын заманда бер карт белән карчык яшәгәннәр, аларның өч улы булган; кечесе иң "
                u"акыллысы һәм җитезе икән."},
    {1251, u"Ерте заманда бiр карт пен кемпiр омiр сурiптi, олардын уш улы болыпты; кенжесi "
           u"ари акылды екен."},
    {1255, u"בְּרֵאשִׁית, בָּרָא אֱלֹהִים, אֵת הַשָּׁמַיִם, וְאֵת הָאָרֶץ. וְהָאָרֶץ, הָיְתָה תֹהוּ"},
    {1255, u"שִׁיר הַשִּׁירִים"},
    {1256, u"الْحَمْدُ لِلَّهِ رَبِّ الْعَالَمِينَ مَالِكِ يَوْمِ الدِّينِ إِيَّاكَ نَعْبُدُ وَإِيَّاكَ نَسْتَعِينُ"},
    {28596, u"بِسْمِ اللَّهِ الرَّحْمَنِ"},
    {932, u"MIDI ﾃﾞｰﾀ ｦ ﾖﾐｺﾐﾏｽ (ﾌｧｲﾙ ﾒｲ: SONG01.MID)"},
    {51950, u"\u5F9E\u524D\u6709\u4E00\u500B\u8001\u570B\u738B\uFF0C\u4ED6\u6709\u4E09\u500B"
            u"\u5152\u5B50\uFF0C\u6700\u5C0F\u7684\u5152\u5B50\u6700\u8070\u660E\uFF0C\u5927"
            u"\u5BB6\u90FD\u5F88\u559C\u6B61\u4ED6\u3002"},
};
} // namespace

TEST_CASE("charset guess: a sentence in each charset, whatever the system's own") {
    for (const Sentence& sentence : sentences) {
        const std::string text = Utf16ToUtf8(sentence.text);
        CAPTURE(sentence.page);
        CAPTURE(text);
        for (const int system : {1252, 1251, 932})
            CHECK(Decoded(Encoded(sentence.page, sentence.text), system) == text);
    }
}

namespace {
const char16_t* const hebrew[] = {
    u"\u05D4\u05D9\u05D4 \u05D4\u05D9\u05D4 \u05DE\u05DC\u05DA \u05D6\u05E7\u05DF "
    u"\u05D5\u05DC\u05D5 "
    u"\u05E9\u05DC\u05D5\u05E9\u05D4 \u05D1\u05E0\u05D9\u05DD,",
    u"\u05D5\u05D4\u05E6\u05E2\u05D9\u05E8 \u05E9\u05D1\u05D4\u05DD \u05D4\u05D9\u05D4 "
    u"\u05D4\u05D7\u05DB\u05DD \u05DE\u05DB\u05D5\u05DC\u05DD.",
};

std::u16string Reversed(std::u16string_view line) {
    return {line.rbegin(), line.rend()};
}
} // namespace

TEST_CASE("charset guess: Hebrew in visual order is in logical order when it is decoded") {
    for (const auto& [page, letters] : {std::pair(28598, 38598), {70003, 862}}) {
        CAPTURE(page);
        std::string visual, logical;
        std::u16string text;
        for (const char16_t* line : hebrew) {
            visual += Encoded(letters, Reversed(line)) + "\r\n";
            logical += Encoded(letters, line) + "\r\n";
            text += std::u16string(line) + u"\r\n";
        }
        for (const int system : {1252, 1255, 1251}) {
            CHECK(DecodePlainText(visual, 0, system).codePage == page);
            CHECK(DecodePlainText(visual, 0, system).text == text);
            CHECK(DecodePlainText(logical, 0, system).text == text);
        }
        CHECK(DecodePlainText(visual, 1255, 1252).codePage == page); // the script chosen
        CHECK(All(PlainTextSource(Reader(visual), 0, 1252, 10)) == Whole(visual, 0));
    }
    // Quotation marks of Windows between them.
    const std::string quoted = "\x94" + Encoded(1255, Reversed(hebrew[0])) + "\x93\n";
    CHECK(DecodePlainText(quoted, 0, 1252).codePage == 70004);
}

TEST_CASE("charset guess: Hebrew without letters that end words is taken for logical") {
    const std::u16string word =
        u"\u05E9\u05DC\u05D5\u05E9\u05D4 \u05D0\u05D5 \u05D0\u05E8\u05D1\u05E2\u05D4";
    for (const std::u16string& text : {word, Reversed(word)})
        CHECK(DecodePlainText(Encoded(1255, text), 0, 1252).text == text);
}

TEST_CASE("charset guess: pieces give what the whole gives") {
    for (const Sentence& sentence : sentences) {
        std::string bytes;
        while (bytes.size() < 3000)
            bytes += Encoded(sentence.page, sentence.text) + "\r\n";
        CAPTURE(sentence.page);
        CHECK(All(PlainTextSource(Reader(bytes), 0, 1252, 100)) == Whole(bytes, 0));
    }
}

TEST_CASE("charset guess: a licence in English does not decide, nor does its copyright sign") {
    std::string book(40000, 'x');
    for (std::size_t i = 0; i < book.size(); i += 6)
        book[i] = ' ';
    book = "Copyright \xA9 1999 \x96 all rights reserved.\n" + book + "\n";
    for (int line = 0; line < 100; ++line)
        book += Encoded(1251, sentences[14].text) + "\n";
    CHECK(DecodePlainText(book, 0, 1252).codePage == 1251);
}

TEST_CASE("charset guess: a long book is looked into after its first part") {
    std::string book(guessSample + 100, 'x');
    for (std::size_t i = 0; i < book.size(); i += 70)
        book[i] = '\n';
    while (book.size() < 3 * guessSample)
        book += Encoded(866, sentences[15].text) + "\n";
    CHECK(DecodePlainText(book, 0, 1252).codePage == 866);
    const PlainTextSource source(Reader(book), 0, 1252);
    CHECK(source.CodePage() == 866);
}

TEST_CASE("charset guess: the frames of a DOS book do not speak against it") {
    const std::string line(60, '\xCD');
    for (const std::u16string_view title :
         {u"\u0413\u043B\u0430\u0432\u0430 1", u"\u0422\u043E\u043C 2"}) {
        std::string framed = "\xC9" + line + "\xBB\n  ";
        framed.append(Encoded(866, title)).append("\n\xC8").append(line).append("\xBC\n");
        CHECK(DecodePlainText(framed, 0, 1251).codePage == 866);
    }
}

TEST_CASE("charset guess: one rare letter far after counts beside thousands of common ones") {
    // So many letters that each of them a few times is more than what is looked at after.
    std::string book;
    while (book.size() < 60'000)
        book +=
            "Le gar\xE7on \xE9tait all\xE9 \xE0 la for\xEAt o\xF9 sa m\xE8re, na\xEFve, "
            "\xE2g\xE9\x65 mais s\xFBre, "
            "l'attendait \xE0 No\xEBl avec l'h\xF4te de l'\xEEle, Sa\xFCl; \xC7\xE0 et l\xE0, "
            "\xC9lan, \xCAtre, "
            "\xCEle, \xD4ter, \xC0 la fin, O\xD9, NO\xCBL, NA\xCFVE, S\xDBR, M\xC8RE, \xC2GE.\n";
    // oe in ISO 8859-15, a half in the other charsets of Western Europe
    book += "Ma s\xBDur, mon c\xBDur, un n\xBDud, un v\xBDu, un b\xBDuf, l'\xBDuf, un \xBDil.\n";
    CHECK(DecodePlainText(book + "Fin.\n", 0, 1252).codePage == 28605);
}

TEST_CASE("charset guess: a quotation mark within a word is a letter of DOS") {
    const struct {
        int page;
        const char16_t* text;
    } cases[] = {
        {850, u"entendit parler d'un fabuleux trésor et partit"},
        {850, u"anhand des Empfängers einstellen"},
        {437, u"certificados generados automáticamente, físicas"},
        {865, u"bankkontokassekladde eller søgeresultater."},
    };
    for (const auto& c : cases)
        CHECK(Decoded(Encoded(c.page, c.text)) == Utf16ToUtf8(c.text));
    // Where it is elsewhere, too, a blank was forgotten.
    const std::string forgotten = "Er rief \x84Halt\x93und lief weg, er sagte\x84Nein\x93.";
    CHECK(DecodePlainText(forgotten, 0, 1252).codePage == 1252);
}

TEST_CASE("charset guess: in doubt the system's own page") {
    const char* const texts[] = {
        "A caf\xE9.",
        "The caf\xE9 was na\xEFve, a clich\xE9.",
        "It cost \xA3"
        "5 in the caf\xE9 \x96 or 6 \x80.",
        "\x93Yes,\x94 he said, \x93it\x92s his.\x94",
        "Sm\xF8rrebr\xF8"
        "d",
        "30 \xB0 C \xB1 2, 1\xBD cups",
        "Prices: 5 \x80, 6 \x80, 70 \x80, 80 \x80, 9 \x80, 10 \x80.",
        "5 \x80\n6 \x80\n70 \x80\n80 \x80\n9 \x80\n10 \x80\n11 \x80\n12 \x80\n",
        "\xA3 5, \xA3 6, \xA3 70, \xA3 80, \xA3 90, \xA3 100, \xA3 110",
        "\xA7 1 Scope. \xA7 2 Terms. \xA7 3 Fees. \xA7 4 Notice. \xA7 5 Law. \xA7 6 End.",
        "\xA9 2001, \xA9 2002, \xA9 2003, \xA9 2004, \xA9 2005, \xA9 2006",
        "1 \xB0, 2 \xB0, 3 \xB0, 4 \xB0, 5 \xB0, 6 \xB0, 7 \xB0, 8 \xB0",
        "9\xB0"
        "C, 6\xB0"
        "C, 6 \xB0, 3.5 \xB0"
        "C, 9\xB0"
        "C.",
        "5\xA2, 80\xA2, 5\xA2, 10\xA2, 9\xA2, 15\xA2, 20\xA2, 50\xA2",
        "No. 3\xBA, 5\xBA, 80\xBA, 10\xBA, 12\xBA and 9\xBA",
        "Cups: 3\xBD, 6\xBC, 2\xBC, 1\xBE, 4\xBD, 7\xBC",
        "\xB1 5 and \xB1 3.5 and \xB1 9 and \xB1 1200 and \xB1 80 and \xB1 9",
        "10 \xD7 10 and 80 \xD7 80 and 9\xD7"
        "9 and 10 \xD7 10 and 10\xD7"
        "10",
        "it\x92s and it\x92s and it\x92s and don\x92t and don\x92t and it\x92s and it\x92s here",
        "\x95"
        "a\n\x95named\n\x95with\n\x95his\n\x95"
        "flour\n\x95winter\n\x95Rex\n\x95"
        "at\n\x95old\n",
    };
    for (const char* const text : texts) {
        const std::string bytes = text;
        CAPTURE(bytes);
        CHECK(DecodePlainText(bytes, 0, 1252).codePage == 1252);
    }
    CHECK(DecodePlainText("\xE0", 0, 1251).codePage == 1251);
}

TEST_CASE("charset guess: signs alone leave a text in the system's own page") {
    const char16_t* const texts[] = {
        u"— Ga je morgen mee naar de markt? vroeg de oude molenaar.\n— Nee, ik blijf liever thuis "
        u"bij het vuur, zei zijn vrouw.\n— Dan ga ik alleen, het regent toch niet.\n",
        u"The old road² ran past the mill² and the church², and the people² who lived there² "
        u"never thought² about where it went². And the children² of the village² played in the "
        u"field² until evening², when their mothers² called².",
    };
    for (const char16_t* const text : texts)
        CHECK(Decoded(Encoded(1252, text)) == Utf16ToUtf8(text));
}

TEST_CASE("charset guess: a fraction within a word is a letter of another page") {
    const char16_t* const text =
        u"La version du nœud n'était pas trouvée, dit le garçon à sa mère.";
    CHECK(Decoded(Encoded(28605, text)) == Utf16ToUtf8(text));
}

TEST_CASE("charset guess: languages whose accents are rare elsewhere stay Western") {
    const char16_t* const gaelic =
        u"Chaidh an t-iasgair a-mach air a\u2019 mhuir sa mhadainn, is chunnaic e "
        u"eilean beag fad \u00E0s. Th\u00E0inig e gu t\u00ECr, rinn e teine m\u00F2r "
        u"air an tr\u00E0igh, agus dh\u2019fhuirich e an sin gus an do "
        u"dh\u2019\u00E8irich a\u2019 ghealach. Bha na rionnagan gl\u00E8 shoilleir; "
        u"dh\u2019inns e sgeulachd dha fh\u00E8in mu na seann l\u00E0ithean, nuair a "
        u"bha a sheanair \u00F2g.";
    const char16_t* const breton =
        u"Bemdez ez ae ar pesketaer kozh da besketa\u00F1, da werzha\u00F1 ha da "
        u"brena\u00F1 bara. Kavout a rae evnio\u00F9 ha pesked er poullo\u00F9, hag e "
        u"kane kanaouenno\u00F9 evit kousket, da\u00F1sal ha c'hoarzhin. Goude-se e "
        u"save e zorn evit saludi\u00F1 ar bigi a oa o tont en-dro d'ar porzhio\u00F9.";
    for (const char16_t* const text : {gaelic, breton})
        CHECK(Decoded(Encoded(1252, text)) == Utf16ToUtf8(text));
}

TEST_CASE("charset guess: a script that was chosen is kept, and its charset told") {
    const std::string koi8 = Encoded(20866, sentences[14].text);
    const std::string dos = Encoded(866, sentences[14].text);
    CHECK(DecodePlainText(koi8, 1251, 1252).codePage == 20866);
    CHECK(DecodePlainText(dos, 1251, 1252).codePage == 866);
    CHECK(DecodePlainText(Encoded(1251, sentences[14].text), 1251, 1252).codePage == 1251);
    CHECK(DecodePlainText(koi8, 1255, 1252).codePage == 1255);
    CHECK(DecodePlainText(koi8, 866, 1252).codePage == 866); // not of Windows: just that
    CHECK(WindowsPageOfScript(866) == 1251);
    CHECK(WindowsPageOfScript(visciiPage) == 1258);
    CHECK(WindowsPageOfScript(65001) == 0);
}

TEST_CASE("charset guess: UTF-8 with stray bytes stays UTF-8") {
    std::string text;
    for (int i = 0; i < 30; ++i)
        text += Utf16ToUtf8(sentences[14].text);
    text.insert(100, "\xFF");
    text += "\xE9 and so on";
    const DecodedText decoded = DecodePlainText(text, 0, 1252);
    CHECK(decoded.encoding == TextEncoding::Utf8);
    CHECK(std::ranges::count(decoded.text, u'\uFFFD') >= 2);
}

TEST_CASE("charset guess: short UTF-8 with a stray byte stays UTF-8") {
    const char16_t* const texts[] = {
        u"\u00C0 l'\u00E9t\u00E9, o\u00F9 na\u00EEt le fa\u00E7onn\u00E9",
        u"El ni\u00F1o comi\u00F3 ma\u00F1ana, \u00BFverdad?",
        u"M\u0142ynarz liczy\u0142 \u015Bwiat\u0142a wzd\u0142u\u017C",
        u"\u201CIt\u2019s the miller\u2019s,\u201D he said \u2014 \u201Ctwice.\u201D",
    };
    for (const char16_t* const text : texts)
        for (const char* const stray : {"\xE9 ", "\xFF", "\xA0", "\x92"}) {
            const std::string bytes = stray + Utf16ToUtf8(text);
            CAPTURE(bytes);
            CHECK(DecodePlainText(bytes, 0, 1252).encoding == TextEncoding::Utf8);
        }
    CHECK(DecodePlainText("\xC3\xA9 caf\xE9.", 0, 1252).encoding == TextEncoding::CodePage);
}

TEST_CASE("charset guess: a word in UTF-16 without a mark") {
    for (const bool big : {false, true})
        for (const char16_t* const word :
             {u"\u041C\u0435\u043B", u"\u05D1\u05EA", u"\u03BC\u03C5\u03BB"})
            CHECK(DecodePlainText(Wide(word, 2, big), 0, 1252).text == word);
    CHECK(DecodePlainText("a\x04", 0, 1252).text == u"a\u0004");
}

TEST_CASE("charset guess: line ends and drawn lines show another system's text") {
    const std::u16string mac = u"The caf\u00E9 was shut.\rThe na\u00EFve man left.\r";
    CHECK(Decoded(Encoded(10000, mac)) == Utf16ToUtf8(mac));
    const std::string western = "The caf\xE9 was shut.\rThe na\xEFve man left.\r";
    CHECK(DecodePlainText(western, 0, 1252).codePage == 1252);
    for (const char16_t* const box : {u"\u250C\u2500\u2500\u2500\u2500\u2500\u2500\u2510\r\n"
                                      u"\u2502 Menu \u2502\r\n\u2502 Quit \u2502\r\n",
                                      u"\u2554\u2550\u2550\u2550\u2550\u2550\u2550\u2557\r\n"
                                      u"\u2551 MENU \u2551\r\n\u2551 Open \u2551\r\n"})
        CHECK(Decoded(Encoded(437, box)) == Utf16ToUtf8(box));
}

TEST_CASE("charset guess: sequences of ISO-2022 and HZ") {
    const struct {
        std::string bytes;
        int page;
        const char16_t* text;
    } cases[] = {
        {"\x1B$B$\"$$\x1B(B abc\n", iso2022JpPage, u"\u3042\u3044 abc\n"},
        {"\x1B(J\\\x1B(I1\x1B$@0!\x1B(B\n", iso2022JpPage, u"\u00A5\uFF71\u4E9C\n"},
        {"\x1B$)C\x0E"
         "0!\x0F a\n\x0E"
         "0!\x0F\n",
         iso2022KrPage, u"\uAC00 a\n\uAC00\n"},
        {"\x1B$)A\x0EVPND\x0F\n", iso2022CnPage, u"\u4E2D\u6587\n"},
        {"a ~{VPND~} ~~\n", hzPage, u"a \u4E2D\u6587 ~\n"},
    };
    for (const auto& c : cases) {
        CAPTURE(c.page);
        const DecodedText decoded = DecodePlainText(c.bytes, 0, 1252);
        CHECK(decoded.codePage == c.page);
        CHECK(Utf16ToUtf8(decoded.text) == Utf16ToUtf8(c.text));
        CHECK(All(PlainTextSource(Reader(c.bytes), 0, 1252, 7)) == Whole(c.bytes, 0));
    }
    for (const char* const text :
         {"\x1B[1mbold\x1B[0m", "~{ not HZ", "a ~ b ~{x~} c", "~{x~}", "~{VP N~}", "\x1B"})
        CHECK(DecodePlainText(text, 0, 1252).encoding == TextEncoding::Utf8);
}

TEST_CASE("charset guess: UTF-32 without a mark") {
    const std::u16string text = u"A line \u0416\r\n";
    for (const bool big : {false, true}) {
        CHECK(DecodePlainText(Wide(text, 4, big), 0, 1252).text == text);
        CHECK(DecodePlainText(Wide(text, 2, big), 0, 1252).text == text);
    }
}

TEST_CASE("charset guess: guesses are sorted, likeliest first") {
    const std::string bytes = Encoded(866, sentences[15].text);
    const std::string_view sample = bytes;
    const auto guesses = GuessCharsets({&sample, 1}, 1252);
    REQUIRE(!guesses.empty());
    CHECK(guesses.front().page == 866);
    CHECK(guesses.front().bits == 0);
    for (std::size_t i = 1; i < guesses.size(); ++i)
        CHECK(guesses[i].bits >= guesses[i - 1].bits);
}
