// SPDX-License-Identifier: MIT
//
// The help book: topics in two languages, written from what a person explains and what pages say of
// themselves.
//
// A source is a text, client/Help/en/onuFec.txt:
//
//     key 6221                                 message that is the topic's key (English only)
//     contents Forward error correction        its line in the table of contents
//     # Forward error correction               title
//
//     A paragraph with **bold** words and a [link](onuBasic).
//
//     ## A heading
//
//     {61601}, {61602} :: a row of a table: what these captions stand for
//     - an item of a list
//     1. an item of a numbered list
//
//     ? {20001}                                explains a button or a message
//     ? {3110}
//     What stands under one or more of these lines.
//     ? {11046}
//     + This stands below the standard explanation.
//     ! {11204}                                the page never shows this one after all
//
// {3110} is the text of that message in bold, {11068:1,4094} the same with its places filled. Lines
// that are indented, or that follow a line of a paragraph, continue it. "{topics}" alone in a
// paragraph is the table of contents. standard.txt has the explanations that need not be written by
// hand: a line of its own for each, "name: text".
#pragma once

#include "base/result.h"
#include "env/language_module.h"
#include "mainform/menu_catalogue.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace onudesk {

// A button or a message with the name of its standard explanation; empty when it has none.
struct Explained {
    std::string head; // as after "? " in a source
    std::string standard;
};

// What the pages with this help key say of themselves.
struct TopicFacts {
    std::set<std::int32_t> items;
    std::vector<Explained> buttons;
    std::vector<Explained> messages;
    std::vector<Explained> results; // of writes, shown behind all others
    std::set<int> captions;         // each must be explained
};

struct HelpSources {
    std::map<std::string, std::string> topics; // by name, with "standard" and "index"
    std::string suffix;                        // of the files: ".htm" or ".zh.htm"
    std::string tag;                           // of the language: "en", "zh-CN"
    LanguageModule texts;
};

// File name to contents, and under "confighelp.txt" the index of keys.
using HelpBook = std::map<std::string, std::string>;

// Topics stand in the table of contents in the order of the menu. Fails, naming each, on topics,
// captions, buttons or messages that only one of sources and facts has, on texts that are missing
// in a language, and on links to no topic.
[[nodiscard]] Result<HelpBook> writeHelpBook(const std::vector<HelpSources>& languages,
                                             const std::map<int, TopicFacts>& facts,
                                             const std::vector<MenuItem>& menu);

} // namespace onudesk
