// A sentence in each charset.
#include "common/utf.h"
#include "formats/plain/plain_text_guess.h"
#include "tests/unit/encoded_text.h"
#include "text_samples.h"

#include <doctest/doctest.h>

#include <string>

namespace {
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
    {1251, russianText},
    {866, russianText},
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

TEST_CASE("charset guess: pieces give what the whole gives") {
    for (const Sentence& sentence : sentences) {
        std::string bytes;
        while (bytes.size() < 3000)
            bytes += Encoded(sentence.page, sentence.text) + "\r\n";
        CAPTURE(sentence.page);
        CHECK(All(PlainTextSource(Reader(bytes), 0, 1252, 100)) == Whole(bytes, 0));
    }
}
