#include "shell/help/help_search.h"

#include "common/find_text.h"
#include "common/text.h"

#include <algorithm>
#include <bit>

namespace {
constexpr std::size_t maxWords = 16;
constexpr TextPos excerptLength = 110, excerptLead = 30; // units; the lead is before the first word
constexpr int titleWeight = 24, headingWeight = 6, wholeWordBonus = 2, countedPerParagraph = 3;

struct Word {
    TextPos start = 0;
    std::u16string folded;
};

struct Hit {
    TextPos start = 0, length = 0;
    std::size_t word = 0;
    bool whole = false;
};

struct Paragraph {
    TextPos start = 0, end = 0;
    std::vector<Hit> hits;
    unsigned words = 0; // a bit for each word of the query that was found
};

struct Candidate {
    HelpFinding finding;
    int words = 0, score = 0;
};

std::vector<Word> WordsOf(std::u16string_view text) {
    std::vector<Word> words;
    bool inWord = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isWord = IsWordUnit(text[i]);
        if (isWord && !inWord) words.push_back({static_cast<TextPos>(i), {}});
        if (isWord) words.back().folded += FoldCase(text[i]);
        inWord = isWord;
    }
    return words;
}

std::vector<std::u16string> QueryWords(std::u16string_view typed) {
    std::vector<std::u16string> query;
    for (Word& word : WordsOf(typed.substr(0, 1000)))
        if (query.size() < maxWords && std::ranges::find(query, word.folded) == query.end())
            query.push_back(std::move(word.folded));
    return query;
}

void FindHits(Paragraph& paragraph, std::u16string_view text,
              const std::vector<std::u16string>& query) {
    for (const Word& word : WordsOf(text))
        for (std::size_t i = 0; i < query.size(); ++i) {
            if (!word.folded.starts_with(query[i])) continue;
            const bool whole = word.folded.size() == query[i].size();
            paragraph.hits.push_back(
                {paragraph.start + word.start, static_cast<TextPos>(query[i].size()), i, whole});
            paragraph.words |= 1u << i;
        }
}

std::vector<Paragraph> ParagraphsOf(const Document& page,
                                    const std::vector<std::u16string>& query) {
    std::vector<Paragraph> paragraphs;
    const std::u16string_view text = page.text;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find(u'\n', at), text.size());
        Paragraph paragraph{static_cast<TextPos>(at), static_cast<TextPos>(end), {}, 0};
        FindHits(paragraph, text.substr(at, end - at), query);
        paragraphs.push_back(std::move(paragraph));
        at = end + 1;
    }
    return paragraphs;
}

// Headings are set larger than text.
bool IsHeading(const Document& page, const Paragraph& paragraph) {
    const auto after =
        std::ranges::upper_bound(page.charRuns, paragraph.start, {}, &StyleRun::start);
    return page.charStyles[(after - 1)->style].halfPoints > page.charStyles[0].halfPoints;
}

int Score(const Document& page, const Paragraph& paragraph) {
    int score = 0;
    std::vector<int> counts(maxWords);
    const bool isHeading = IsHeading(page, paragraph);
    const int weight = paragraph.start == 0 ? titleWeight : isHeading ? headingWeight : 1;
    for (const Hit& hit : paragraph.hits)
        if (counts[hit.word]++ < countedPerParagraph)
            score += weight * (1 + (hit.whole ? wholeWordBonus : 0));
    return score;
}

// A stretch of the paragraph around its first hit, cut between words, with the hits in it.
void MakeExcerpt(HelpFinding& finding, std::u16string_view text, const Paragraph& paragraph) {
    const TextPos first = paragraph.hits.empty() ? paragraph.start : paragraph.hits[0].start;
    TextPos start = std::max(paragraph.start, first - excerptLead);
    if (paragraph.end - paragraph.start <= excerptLength) start = paragraph.start;
    while (start > paragraph.start && start < first && text[start - 1] != u' ')
        ++start;
    TextPos end = std::min(paragraph.end, start + excerptLength);
    while (end < paragraph.end && end > first && text[end] != u' ')
        --end;
    if (end <= first) end = std::min(paragraph.end, start + excerptLength); // one endless word
    if (start > paragraph.start) finding.excerpt = u"\u2026 ";
    const TextPos shift = static_cast<TextPos>(finding.excerpt.size()) - start;
    finding.excerpt += text.substr(start, end - start);
    std::ranges::replace(finding.excerpt, u'\t', u' ');
    if (end < paragraph.end) finding.excerpt += u" \u2026";
    TextPos marked = start;
    for (const Hit& hit : paragraph.hits) {
        if (hit.start < marked || hit.start + hit.length > end) continue;
        finding.marks.push_back({hit.start + shift, hit.length});
        marked = hit.start + hit.length;
    }
}

Candidate Judge(const HelpTopic& topic, const std::vector<std::u16string>& query) {
    const std::vector<Paragraph> paragraphs = ParagraphsOf(topic.page, query);
    Candidate candidate;
    unsigned words = 0;
    const Paragraph* best = nullptr;
    for (const Paragraph& paragraph : paragraphs) {
        words |= paragraph.words;
        candidate.score += Score(topic.page, paragraph);
        // The title stands above the excerpt anyway.
        if (paragraph.start == 0 || !paragraph.words) continue;
        if (!best || std::popcount(paragraph.words) > std::popcount(best->words)) best = &paragraph;
    }
    candidate.words = std::popcount(words);
    if (candidate.words == 0) return candidate;
    const Paragraph& shown = best ? *best : paragraphs.size() > 1 ? paragraphs[1] : paragraphs[0];
    const std::vector<Hit>& hits = best ? best->hits : paragraphs[0].hits;
    candidate.finding.title = topic.title;
    candidate.finding.place = {hits[0].start, hits[0].length};
    MakeExcerpt(candidate.finding, topic.page.text, shown);
    return candidate;
}
} // namespace

std::vector<HelpFinding> SearchHelp(const HelpBook& book, std::u16string_view typed) {
    const std::vector<std::u16string> query = QueryWords(typed);
    std::vector<Candidate> candidates;
    int maxFound = 1;
    for (std::size_t i = 0; i < book.topics.size(); ++i) {
        candidates.push_back(Judge(book.topics[i], query));
        candidates.back().finding.page = static_cast<int>(i);
        maxFound = std::max(maxFound, candidates.back().words);
    }
    std::erase_if(candidates, [maxFound](const Candidate& c) { return c.words < maxFound; });
    std::ranges::stable_sort(candidates, std::ranges::greater(), &Candidate::score);
    std::vector<HelpFinding> findings;
    findings.reserve(candidates.size());
    for (Candidate& candidate : candidates)
        findings.push_back(std::move(candidate.finding));
    return findings;
}
