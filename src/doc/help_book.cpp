// SPDX-License-Identifier: MIT
#include "doc/help_book.h"

#include "base/numbers.h"
#include "base/text.h"
#include "doc/help_topic.h"
#include "env/message_ids.h"

#include <algorithm>
#include <cctype>
#include <functional>
#include <iterator>
#include <optional>
#include <set>
#include <sstream>
#include <string_view>
#include <utility>

namespace onudesk {

namespace {

constexpr const char* kIndex = "index";
constexpr const char* kStandard = "standard";
constexpr std::string_view kContents = "{topics}";

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);) {
        parts.push_back(part);
    }
    return parts;
}

// A message's number and what fills its places, as "{11068:1,4094}" has them.
struct Place {
    int id = 0;
    std::vector<std::string> arguments;
};

Place placeOf(const std::string& inner) {
    const std::size_t colon = inner.find(':');
    return {leadingInteger(inner), colon == std::string::npos
                                       ? std::vector<std::string>()
                                       : split(inner.substr(colon + 1), ',')};
}

// As HTML; texts that are joined in a message end in a blank.
std::string escaped(std::string_view text) {
    text.remove_suffix(text.size() - text.find_last_not_of(' ') - 1);
    std::string out;
    for (const char letter : text) {
        out += letter == '&'   ? "&amp;"
               : letter == '<' ? "&lt;"
               : letter == '>' ? "&gt;"
                               : std::string(1, letter);
    }
    return out;
}

using Report = std::function<void(const std::string& problem)>;

// A book in one language.
class BookWriter {
public:
    BookWriter(const HelpSources& sources, const std::vector<HelpSources>& languages, Report report)
        : sources_(sources), languages_(languages), report_(std::move(report)) {
        const auto standard = sources.topics.find(kStandard);
        if (standard != sources.topics.end()) {
            for (const Line& line : lines(standard->second)) {
                const std::size_t colon = line.text.find(": ");
                if (colon != std::string_view::npos) {
                    standard_.emplace(line.text.substr(0, colon), line.text.substr(colon + 2));
                }
            }
        }
        for (const auto& [name, source] : sources.topics) {
            if (name != kStandard) {
                topics_.emplace(name, readTopic(source));
            }
        }
    }

    [[nodiscard]] const std::map<std::string, HelpTopic>& topics() const { return topics_; }

    // Of a topic with its facts, null for one that explains no page. `key` is that of the topic.
    std::string write(const std::string& name, const TopicFacts* facts,
                      const std::string& contents) {
        name_ = name;
        named_.clear();
        const HelpTopic& topic = topics_.at(name);
        std::string body = writeLines(topic.lines, contents);
        static const TopicFacts none;
        body += writeExplanations(topic, facts == nullptr ? none : *facts);
        for (const int caption : facts == nullptr ? std::set<int>() : facts->captions) {
            if (!named_.contains(sources_.texts.text(caption))) {
                problem("does not explain {" + std::to_string(caption) + "}, \"" +
                        sources_.texts.text(caption) + "\"");
            }
        }
        return page(topic.title, body);
    }

    // The table of contents in the order of the menu; `names` are the topics of items.
    std::string contents(const std::vector<MenuItem>& menu,
                         const std::map<std::int32_t, std::string>& names) {
        name_ = kIndex;
        std::string out;
        std::set<std::string> listed{kIndex};
        std::set<std::string> ofItems;
        for (const auto& [item, name] : names) {
            ofItems.insert(name);
        }
        for (const auto& [name, topic] : topics_) {
            if (!ofItems.contains(name) && listed.insert(name).second) {
                out += contentsLine(name);
            }
        }
        out = "<ul>\n" + out + "</ul>\n";
        for (const MenuItem& heading : menu) {
            out += section(heading, names, listed);
        }
        for (const auto& [name, topic] : topics_) {
            if (!listed.contains(name)) {
                problem("the menu does not lead to " + name);
            }
        }
        return out;
    }

private:
    void problem(const std::string& text) { report_(sources_.tag + "/" + name_ + ": " + text); }

    [[nodiscard]] std::string standard(const std::string& name) {
        const auto found = standard_.find(name);
        if (found == standard_.end()) {
            problem("there is no standard explanation " + name);
            return {};
        }
        return found->second;
    }

    [[nodiscard]] std::string contentsLine(const std::string& name) {
        const std::string& text = topics_.at(name).contents;
        if (text.empty()) {
            problem(name + " has no line for the contents");
        }
        return "<li><a href=\"" + name + sources_.suffix + "\">" + escaped(text) + "</a></li>\n";
    }

    std::string section(const MenuItem& heading, const std::map<std::int32_t, std::string>& names,
                        std::set<std::string>& listed) {
        std::string own;
        std::string below;
        for (const MenuItem& item : heading.children) {
            const auto name = names.find(item.itemType);
            if (!item.children.empty()) {
                below += section(item, names, listed);
            } else if (name != names.end() && listed.insert(name->second).second) {
                own += contentsLine(name->second);
            }
        }
        if (!own.empty()) {
            own = "<h3>" + escaped(sources_.texts.text(heading.itemType)) + "</h3>\n<ul>\n" + own +
                  "</ul>\n";
        }
        return own + below;
    }

    // The message's text with its places filled.
    std::string textOf(const Place& place) {
        const std::string& format = sources_.texts.text(place.id);
        if (format.empty()) {
            problem("there is no text " + std::to_string(place.id));
        }
        std::string text = fillPlaces(format, place.arguments);
        named_.insert(text);
        return text;
    }

    // Texts of messages without markup, other letters as they are.
    std::string headText(const std::string& head) {
        return replaced(head, [this](const std::string& inner) { return textOf(placeOf(inner)); });
    }

    static std::string replaced(const std::string& text,
                                const std::function<std::string(const std::string&)>& place) {
        std::string out;
        std::size_t at = 0;
        for (std::size_t open = 0; (open = text.find('{', at)) != std::string::npos;) {
            const std::size_t close = std::min(text.find('}', open), text.size() - 1);
            out += text.substr(at, open - at) + place(text.substr(open + 1, close - open - 1));
            at = close + 1;
        }
        return out + text.substr(at);
    }

    // Markup within a line.
    std::string inlined(const std::string& text) {
        std::string out = replaced(escaped(text), [this](const std::string& inner) {
            return "<b>" + escaped(textOf(placeOf(inner))) + "</b>";
        });
        for (std::size_t at = 0; (at = out.find("**", at)) != std::string::npos;) {
            const std::size_t end = out.find("**", at + 2);
            if (end == std::string::npos) {
                problem("** without end: " + text);
                break;
            }
            out.replace(end, 2, "</b>").replace(at, 2, "<b>");
        }
        for (std::size_t middle = 0; (middle = out.find("](", middle)) != std::string::npos;) {
            const std::size_t open = out.rfind('[', middle);
            const std::size_t close = out.find(')', middle);
            const std::string name = out.substr(middle + 2, close - middle - 2);
            if (!topics_.contains(name)) {
                problem("there is no topic " + name);
            }
            const std::string link = "<a href=\"" + name + sources_.suffix + "\">" +
                                     out.substr(open + 1, middle - open - 1) + "</a>";
            out.replace(open, close + 1 - open, link);
            middle = open + link.size();
        }
        return out;
    }

    std::string writeLines(const std::vector<HelpLine>& lines, const std::string& contents) {
        std::string out;
        std::string end; // of the list or table that is open
        std::optional<LineKind> last;
        for (const HelpLine& line : lines) {
            if (line.kind != last) {
                out += std::exchange(end, {});
                out += line.kind == LineKind::row        ? kTable
                       : line.kind == LineKind::item     ? "<ul>\n"
                       : line.kind == LineKind::numbered ? "<ol>\n"
                                                         : "";
                end = line.kind == LineKind::row        ? "</table>\n"
                      : line.kind == LineKind::item     ? "</ul>\n"
                      : line.kind == LineKind::numbered ? "</ol>\n"
                                                        : "";
                last = line.kind;
            }
            if (line.kind == LineKind::heading) {
                out += "\n<h2>" + inlined(line.text) + "</h2>\n";
            } else if (line.kind == LineKind::row) {
                const std::size_t colons = line.text.find(" :: ");
                out += row(inlined(line.text.substr(0, colons)), line.text.substr(colons + 4));
            } else if (line.kind == LineKind::paragraph) {
                out += line.text == kContents ? contents : "<p>" + inlined(line.text) + "</p>\n";
            } else {
                out += "<li>" + inlined(line.text) + "</li>\n";
            }
        }
        return out + end;
    }

    std::string row(const std::string& label, const std::string& text) {
        return "<tr><td>" + label + "</td><td>" + inlined(text) + "</td></tr>\n";
    }

    // The paragraphs of an explanation, the standard one where it is wanted.
    std::vector<std::string> paragraphs(const HelpEntry* entry, const std::string& standardName,
                                        const std::string& head) {
        std::vector<std::string> found;
        if (entry == nullptr || entry->more) {
            if (!standard_.contains(standardName)) {
                problem("does not explain " + head + ", \"" + headText(head) + "\"");
                return found;
            }
            found.push_back(standard(standardName));
        }
        if (entry != nullptr) {
            if (entry->paragraphs.empty()) {
                problem("has nothing under " + head);
            }
            found.insert(found.end(), entry->paragraphs.begin(), entry->paragraphs.end());
        }
        return found;
    }

    // "{11068}" stands for all messages with that number, whatever fills their places.
    static bool covers(const std::string& head, const std::string& message) {
        return head == message ||
               (head.ends_with('}') && message.starts_with(head.substr(0, head.size() - 1) + ":"));
    }

    static const HelpEntry* entryOf(const std::vector<HelpEntry>& entries,
                                    const std::string& message) {
        const auto found = std::ranges::find_if(entries, [&](const HelpEntry& entry) {
            return std::ranges::any_of(
                entry.heads, [&](const std::string& head) { return covers(head, message); });
        });
        return found == entries.end() ? nullptr : &*found;
    }

    // The messages of a topic: by hand in their order, those of the page that are left, results.
    std::vector<Explained> inOrder(const HelpTopic& topic, const TopicFacts& facts) {
        std::vector<Explained> found;
        const auto has = [](const std::vector<Explained>& list, const std::string& head) {
            return std::ranges::find(list, head, &Explained::head) != list.end();
        };
        for (const HelpEntry& entry : topic.entries) {
            for (const std::string& head : entry.heads) {
                if (has(facts.buttons, head) || has(facts.results, head)) {
                    continue;
                }
                const std::size_t before = found.size();
                std::ranges::copy_if(
                    facts.messages, std::back_inserter(found),
                    [&](const Explained& message) { return covers(head, message.head); });
                if (found.size() > before) {
                    continue;
                }
                const int id = placeOf(head.substr(1)).id;
                if (message::config <= id && id <= message::cancel) {
                    problem("explains " + head + ", which is none of its buttons");
                }
                found.push_back({head, {}});
            }
        }
        std::ranges::copy_if(facts.messages, std::back_inserter(found),
                             [&](const Explained& message) { return !has(found, message.head); });
        found.insert(found.end(), facts.results.begin(), facts.results.end());
        for (const std::string& head : topic.absent) {
            if (std::erase_if(
                    found, [&](const Explained& message) { return message.head == head; }) == 0) {
                problem("would not show " + head + " anyhow");
            }
        }
        return found;
    }

    std::string writeExplanations(const HelpTopic& topic, const TopicFacts& facts) {
        std::string buttons;
        for (const auto& [head, standardName] : facts.buttons) {
            std::string text;
            for (const std::string& each :
                 paragraphs(entryOf(topic.entries, head), standardName, head)) {
                text += (text.empty() ? "" : " ") + each;
            }
            buttons += row("<b>" + escaped(headText(head)) + "</b>", text);
        }
        std::string messages;
        std::vector<std::string> last; // explanation of the messages above
        const auto end = [&] {
            for (const std::string& each : last) {
                messages += "<dd>" + inlined(each) + "</dd>\n";
            }
        };
        for (const auto& [head, standardName] : inOrder(topic, facts)) {
            std::vector<std::string> text =
                paragraphs(entryOf(topic.entries, head), standardName, head);
            if (text != last) {
                end();
                last = std::move(text);
            }
            messages += "<dt><b>" + escaped(headText(head)) + "</b></dt>\n";
        }
        end();
        return (buttons.empty() ? "" : heading("buttons") + kTable + buttons + "</table>\n") +
               (messages.empty() ? "" : heading("messages") + "<dl>\n" + messages + "</dl>\n");
    }

    std::string heading(const std::string& name) {
        return "\n<h2>" + inlined(standard(name)) + "</h2>\n";
    }

    std::string page(const std::string& title, const std::string& body) {
        std::string navigation;
        if (name_ != kIndex) {
            navigation = "<a href=\"" + std::string(kIndex) + sources_.suffix + "\">" +
                         escaped(standard("contents")) + "</a>";
        }
        for (const HelpSources& other : languages_) {
            if (other.suffix != sources_.suffix) {
                navigation += (navigation.empty() ? "" : " | ") + ("<a href=\"" + name_) +
                              other.suffix + "\">" + escaped(standard(other.tag)) + "</a>";
            }
        }
        return "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.01//EN\" "
               "\"http://www.w3.org/TR/html4/strict.dtd\">\n<!-- SPDX-License-Identifier: MIT -->\n"
               "<html lang=\"" +
               sources_.tag +
               "\">\n<head>\n<meta http-equiv=\"Content-Type\" content=\"text/html; "
               "charset=utf-8\">\n<title>" +
               escaped(title) + "</title>\n</head>\n<body>\n<p>" + navigation + "</p>\n<h1>" +
               escaped(title) + "</h1>\n" + body + "</body>\n</html>\n";
    }

    static constexpr const char* kTable =
        "<table border=\"1\" cellspacing=\"0\" cellpadding=\"4\">\n";

    const HelpSources& sources_;
    const std::vector<HelpSources>& languages_;
    const Report report_;
    std::map<std::string, std::string> standard_;
    std::map<std::string, HelpTopic> topics_;
    std::string name_;            // of the topic in hand
    std::set<std::string> named_; // texts that it names
};

} // namespace

Result<HelpBook> writeHelpBook(const std::vector<HelpSources>& languages,
                               const std::map<int, TopicFacts>& facts,
                               const std::vector<MenuItem>& menu) {
    std::string problems;
    const auto report = [&](const std::string& problem) {
        problems += (problems.empty() ? "" : "\n") + problem;
    };
    HelpBook book;
    std::map<std::string, int> keys;           // of topics
    std::map<std::int32_t, std::string> names; // of the topics of items
    for (const HelpSources& language : languages) {
        BookWriter writer(language, languages, report);
        if (keys.empty()) {
            std::set<int> missing;
            for (const auto& [key, topic] : facts) {
                missing.insert(key);
            }
            for (const auto& [name, topic] : writer.topics()) {
                const auto found = facts.find(topic.key);
                keys[name] = topic.key;
                missing.erase(topic.key);
                if (found != facts.end()) {
                    for (const std::int32_t item : found->second.items) {
                        names[item] = name;
                    }
                } else if (topic.key != 0) {
                    report(name + ": no page has the key " + std::to_string(topic.key));
                }
            }
            for (const int key : missing) {
                report("no topic has the key " + std::to_string(key) + ", \"" +
                       language.texts.text(key) + "\"");
            }
        }
        const std::string contents = writer.contents(menu, names);
        for (const auto& [name, topic] : writer.topics()) {
            for (const HelpSources& other : languages) {
                if (!other.topics.contains(name)) {
                    report(other.tag + " has no topic " + name);
                }
            }
            const auto key = keys.find(name);
            const auto found = key == keys.end() ? facts.end() : facts.find(key->second);
            book[name + language.suffix] =
                writer.write(name, found == facts.end() ? nullptr : &found->second, contents);
            if (found != facts.end()) {
                book["confighelp.txt"] += std::to_string(found->first) + "=" + name +
                                          language.suffix + "\tx " +
                                          language.texts.text(found->first) + "\n";
            }
        }
    }
    return problems.empty() ? Result<HelpBook>(std::move(book)) : Error{problems};
}

} // namespace onudesk
