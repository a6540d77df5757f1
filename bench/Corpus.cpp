#include "bench/Corpus.h"

#include "model/TreeWalk.h"

#include <array>
#include <span>
#include <string>
#include <string_view>

namespace tabulon::bench {

namespace {

/// SplitMix64: small, of sufficient quality, and equal on all machines, unlike the distributions of the
/// standard library.
class Dice {
public:
    explicit Dice(std::uint64_t seed) : state_(seed) {}

    /// Returns a number less than `limit`.
    std::uint64_t below(std::uint64_t limit) {
        state_ += 0x9E3779B97F4A7C15u;
        std::uint64_t z = state_;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return (z ^ (z >> 31)) % limit;
    }
    bool percent(unsigned chance) { return below(100) < chance; }
    std::string_view from(std::span<const std::string_view> words) { return words[below(words.size())]; }

private:
    std::uint64_t state_;
};

using Words = std::array<std::string_view, 12>;

constexpr Words kEnglish = {"Guide", "to",      "Weather", "Open",  "Garden", "Reference",
                            "the",   "History", "Daily",   "Maps,", "Notes",  "& Recipes"};
constexpr Words kGerman = {"Über",    "Wörterbuch", "Fahrplan", "der",    "Küche", "Straße",
                           "Gesetze", "Zeitung",    "für",      "Bücher", "Vögel", "Wetter"};
constexpr Words kFrench = {"Été",   "à la",  "Librairie", "école", "Théâtre",  "« Actualités »",
                           "Musée", "l'île", "Forêts",    "où",    "Recettes", "Histoire"};
constexpr Words kPolish = {"Żółw",   "Książki", "Łódź", "pogoda",    "Słownik", "Kraków",
                           "źródła", "gęś",     "Mapa", "ćwiczenia", "Święta",  "muzyka"};
constexpr Words kRussian = {"Новости", "Словарь", "Погода", "Книги", "История", "расписание",
                            "музей",   "рецепты", "карта",  "сад",   "Ёлка",    "поезда"};
constexpr Words kGreek = {"Ειδήσεις", "Καιρός", "Βιβλία", "ιστορία", "μουσείο", "χάρτης",
                          "συνταγές", "κήπος",  "λεξικό", "Άνοιξη",  "τρένα",   "νησί"};
constexpr Words kJapanese = {"天気予報", "辞書",   "ニュース", "料理",   "地図",           "歴史",
                             "図書館",   "時刻表", "庭の花",   "博物館", "プログラミング", "入門"};
constexpr Words kChinese = {"新闻", "天气", "词典",   "历史", "地图", "菜谱",
                            "图书", "花园", "博物馆", "火车", "学习", "指南"};
constexpr Words kKorean = {"날씨",   "뉴스", "사전",   "역사", "지도", "요리법",
                           "도서관", "정원", "박물관", "기차", "안내", "음악"};
constexpr Words kArabic = {"أخبار", "الطقس", "قاموس", "تاريخ", "خريطة", "وصفات",
                           "مكتبة", "حديقة", "متحف",  "قطار",  "دليل",  "كتب"};
constexpr Words kHebrew = {"חדשות",  "מזג אוויר", "מילון",   "היסטוריה", "מפה",   "מתכונים",
                           "ספרייה", "גן",        "מוזיאון", "רכבת",     "מדריך", "מוזיקה"};
constexpr Words kHindi = {"समाचार", "मौसम", "शब्दकोश", "इतिहास", "नक्शा", "व्यंजन",
                          "पुस्तक",   "बाग",  "रेल",     "गाइड",   "संगीत", "कला"};

/// One row for each script. A script is chosen as often as it is repeated here.
constexpr std::array<const Words*, 20> kScripts = {&kEnglish,  &kEnglish, &kEnglish, &kEnglish, &kEnglish,
                                                   &kEnglish,  &kEnglish, &kGerman,  &kGerman,  &kFrench,
                                                   &kFrench,   &kPolish,  &kRussian, &kRussian, &kGreek,
                                                   &kJapanese, &kChinese, &kKorean,  &kArabic,  &kHebrew};

constexpr std::array<std::string_view, 16> kHostWords = {
    "news", "weather", "docs",  "library", "maps",  "open",   "garden", "code",
    "blog", "museum",  "daily", "wiki",    "radio", "trains", "cook",   "photo"};
constexpr std::array<std::string_view, 8> kEndings = {".org",   ".com", ".net", ".de",
                                                      ".co.uk", ".fr",  ".jp",  ".info"};
constexpr std::array<std::string_view, 8> kOtherLinks = {"mailto:someone@example.org",
                                                         "ftp://ftp.example.org/pub/",
                                                         "file:///home/someone/notes.html",
                                                         "news:comp.lang.c++",
                                                         "javascript:void(0)",
                                                         "gopher://gopher.example.org/",
                                                         "telnet://library.example/",
                                                         "about:blank"};

constexpr std::uint64_t kDayOfFirstLink = 1'041'379'200; // 2003-01-01
constexpr std::uint64_t kSecondsOfLinks = 700'000'000;

class CorpusMaker {
public:
    explicit CorpusMaker(std::uint64_t seed) : dice_(seed) {}

    Ref<Bookmark> make(std::size_t links) {
        Ref<Bookmark> root = Bookmark::initEmpty();
        root->makeParent();
        root->setItemName("Master");
        root->setShowHier(true);
        // Two flat folders contain a fifth of all links; the rest is a tree.
        addFlatFolder(*root, links / 10);
        addFlatFolder(*root, links / 10);
        std::size_t made = links / 10 * 2;
        std::vector<Bookmark*> path = {root.get()};
        while (made < links) {
            const std::uint64_t what = dice_.below(100);
            if (what < 7 && path.size() <= kDeepest)
                path.push_back(addFolder(*path.back()));
            else if (what < 14 && path.size() > 1)
                path.pop_back();
            else if (what < 17)
                addSeparator(*path.back());
            else {
                addLink(*path.back());
                ++made;
            }
        }
        return root;
    }

private:
    static constexpr std::size_t kDeepest = 8;

    void addFlatFolder(Bookmark& parent, std::size_t links) {
        Bookmark* folder = addFolder(parent);
        for (std::size_t i = 0; i < links; ++i)
            addLink(*folder);
    }

    Bookmark* addFolder(Bookmark& parent) {
        Ref<Bookmark> node = Bookmark::initEmpty();
        node->makeParent();
        node->setItemName(words(1, 3));
        node->setShowHier(dice_.percent(30));
        setDates(*node);
        Bookmark* folder = node.get();
        parent.addChild(std::move(node));
        return folder;
    }

    void addSeparator(Bookmark& parent) {
        Ref<Bookmark> node = Bookmark::initEmpty();
        node->setType(kSeparatorType);
        parent.addChild(std::move(node));
    }

    void addLink(Bookmark& parent) {
        Ref<Bookmark> node = Bookmark::initEmpty();
        node->setItemName(words(2, 6));
        node->setItemURL(address());
        if (dice_.percent(12))
            node->setItemNote(words(6, 18));
        if (dice_.percent(12))
            node->setItemTags(words(1, 3));
        setDates(*node);
        if (dice_.percent(6))
            node->setLabel(static_cast<std::uint8_t>(1 + dice_.below(7)));
        node->determineType();
        node->linkIcon();
        parent.addChild(std::move(node));
    }

    void setDates(Bookmark& node) {
        const std::uint64_t added = kDayOfFirstLink + dice_.below(kSecondsOfLinks);
        node.setItemDateAdded(date(added));
        if (dice_.percent(35))
            node.setItemDateModified(date(added + dice_.below(50'000'000)));
        if (dice_.percent(5))
            node.setItemLastChecked(date(added + dice_.below(50'000'000)));
        if (dice_.percent(12))
            node.setItemLastOpened(date(added + dice_.below(50'000'000)));
    }

    static Date date(std::uint64_t unixSeconds) {
        return Date::fromUnixSeconds(static_cast<double>(unixSeconds));
    }

    /// Returns from `least` to `most` words of one script.
    std::string words(std::uint64_t least, std::uint64_t most) {
        const bool hindi = dice_.percent(4);
        const Words& script = hindi ? kHindi : *kScripts[dice_.below(kScripts.size())];
        std::string text;
        for (std::uint64_t count = least + dice_.below(most - least + 1); count > 0; --count) {
            if (!text.empty())
                text += ' ';
            text += dice_.from(script);
        }
        return text;
    }

    std::string address() {
        if (dice_.percent(2))
            return std::string(dice_.from(kOtherLinks));
        std::string url = dice_.percent(85) ? "https://" : "http://";
        if (dice_.percent(60))
            url += "www.";
        url.append(dice_.from(kHostWords)).append("-").append(dice_.from(kHostWords));
        url += std::to_string(dice_.below(10'000));
        url.append(dice_.from(kEndings)).append("/");
        for (std::uint64_t parts = dice_.below(5); parts > 0; --parts)
            url.append(dice_.from(kHostWords)).append("-").append(dice_.from(kHostWords)).append("/");
        url += std::to_string(dice_.below(10'000'000)) + ".html";
        if (dice_.percent(25))
            url += "?id=" + std::to_string(dice_.below(1'000'000)) + "&lang=en&ref=home";
        return url;
    }

    Dice dice_;
};

} // namespace

Ref<Bookmark> makeCorpus(std::size_t links, std::uint64_t seed) {
    return CorpusMaker(seed).make(links);
}

TreeSize sizeOf(const Bookmark& root) {
    TreeSize size;
    std::size_t depth = 0;
    const auto enter = [&](Bookmark& node) {
        ++size.nodes;
        if (node.isFolder())
            ++size.folders;
        else if (node.isSeparator())
            ++size.separators;
        else
            ++size.links;
        for (const Text* text : {&node.itemName(), &node.itemURL(), &node.itemNote(), &node.itemTags()})
            size.textBytes += text->view().size();
        if (node.getChildren())
            size.depth = std::max(size.depth, ++depth);
        return true;
    };
    walkBelow(root, enter, [&](Bookmark&) { --depth; });
    return size;
}

} // namespace tabulon::bench
