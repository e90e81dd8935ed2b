// Every table row by row against the machine-readable definitions of the category documents, where their folder is at
// hand: in AST_STANDARD, or in shared/standard beside the source tree.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <numeric>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ast.h"

namespace {

using Rows = std::vector<std::string>;

// ---- The definitions: lines that stand in one another by their indentation ----

struct Node {
    int indent = -1;
    std::string text;
    std::vector<Node> inner;

    std::string word(size_t number) const {
        std::istringstream words(text);
        std::string word;
        while (words >> word && number-- != 0) {
        }
        return word;
    }
    bool is(const char *first_word) const { return word(0) == first_word; }
    // What is no prose.
    std::vector<Node> content() const {
        std::vector<Node> nodes;
        for (const Node &node : inner)
            if (!node.is("definition") && !node.is("description") && !node.is("remark") && !node.is("preamble"))
                nodes.push_back(node);
        return nodes;
    }
    Node only() const { return content().at(0); }
};

Node read_tree(const std::filesystem::path &path) {
    Node root;
    std::ifstream file(path);
    std::vector<Node *> open{&root};
    for (std::string line; std::getline(file, line);) {
        const size_t first = line.find_first_not_of(' ');
        if (first == std::string::npos) continue;
        const int indent = static_cast<int>(first / 4);
        while (open.back()->indent >= indent) open.pop_back();
        std::string text = line.substr(first, line.find_last_not_of(' ') - first + 1);
        open.back()->inner.push_back({indent, text, {}});
        open.push_back(&open.back()->inner.back());
    }
    return root;
}

struct Name {
    std::string name, title;
    explicit Name(const std::string &text) {
        static const std::regex kForm("(\\S+) +\"(.*)\"");
        std::smatch found;
        if (std::regex_match(text, found, kForm)) name = found[1], title = found[2];
    }
};

// ---- The rows that a definition asks for ----

// Steps that the definitions have wrong, by path: of the range that they state themselves, or of an item beside them.
const std::map<std::string, std::string> kMended = {
    {"I010/202/VX", "1/4"},
    {"I010/202/VY", "1/4"},
    {"I010/210/AX", "1/4"},
    {"I010/210/AY", "1/4"},
    {"I017/045/LAT", "180/8388608"},
    {"I017/045/LON", "180/8388608"},
    {"I025/600/LON", "180/2147483648"},
    {"I015/605/RSVA/SDVA", "64/25"},
};
// Registers that the definitions give as bits.
const std::map<std::string, const char *> kRegisters = {{"I007/250", "[]|Mode S Comm B Message Data|7|64|"},
                                                        {"I010/250", "[]||7|64|"},
                                                        {"I020/250", "[]|BDS Register Data|7|64|"},
                                                        {"I048/250", "[]|BDS Register Data|7|64|"},
                                                        {"I007/260", "|ACAS Resolution Advisory Report|7|56|"},
                                                        {"I020/260", "|ACAS Resolution Advisory Report|7|56|"},
                                                        {"I048/260", "|ACAS Resolution Advisory Report|7|56|"}};
// Bits whose texts the definitions have the wrong way round: those of the technologies that took part.
const std::set<std::string> kReversed = {"I020/020/SSR", "I020/020/MS",  "I020/020/HF", "I020/020/VDL4",
                                         "I020/020/UAT", "I020/020/DME", "I020/020/OT"};

std::string row(const std::string &path, const std::string &title, uint32_t kind, unsigned bits,
                const std::string &rest = "") {
    return path + "|" + title + "|" + std::to_string(kind) + "|" + std::to_string(bits) + "|" + rest;
}

uint64_t power(const std::string &text) {
    const size_t caret = text.find('^');
    const uint64_t base = std::stoull(text);
    uint64_t result = base;
    for (int i = caret == std::string::npos ? 1 : std::stoi(text.substr(caret + 1)); i > 1; --i) result *= base;
    return result;
}

std::string lowest_terms(const std::string &step) {
    const size_t slash = step.find('/');
    const uint64_t numerator = std::stoull(step);
    const uint64_t denominator = slash == std::string::npos ? 1 : power(step.substr(slash + 1));
    const uint64_t divisor = std::gcd(numerator, denominator);
    return std::to_string(numerator / divisor) + "/" + std::to_string(denominator / divisor);
}

class Expected {
public:
    Rows rows;

    void field(const Node &node, const std::string &path, const std::string &title) {
        if (const auto found = kRegisters.find(path); found != kRegisters.end()) {
            if (node.is("repetitive")) rows.push_back(row(path, title, AST_FIELD_REPETITIVE, 0));
            rows.push_back(path + found->second);
        } else if (node.is("element")) {
            value(node.only(), path, title, static_cast<unsigned>(std::stoi(node.word(1))));
        } else if (node.is("group")) {
            if (!path.ends_with("[]")) rows.push_back(row(path, title, AST_FIELD_GROUP, bits(node)));
            members(node, path);
        } else if (node.is("extended") || node.is("compound")) {
            rows.push_back(row(path, title, node.is("extended") ? AST_FIELD_EXTENDED : AST_FIELD_COMPOUND, 0));
            members(node, path);
        } else if (node.is("repetitive")) {
            rows.push_back(row(path, title, node.word(1) == "fx" ? AST_FIELD_CHAINED : AST_FIELD_REPETITIVE, 0));
            field(node.only(), path + "[]", "");
        } else if (node.is("case")) {
            rows.push_back(row(path, title, AST_FIELD_EITHER, bits(node)));
            for (const Node &reading : node.inner)
                if (!reading.is("default:")) field(reading.only(), path, title);
        } else if (node.is("explicit")) {
            rows.push_back(row(path, title, AST_FIELD_EXPLICIT, 0));
        } else {
            ADD_FAILURE() << path << ": " << node.text;
        }
    }

private:
    static unsigned bits(const Node &node) {
        if (node.is("element") || node.is("spare")) return static_cast<unsigned>(std::stoi(node.word(1)));
        if (node.is("case")) return bits(node.inner.at(0).only());
        unsigned sum = 0;
        for (const Node &member : node.content()) sum += member.is("spare") ? bits(member) : bits(member.only());
        return sum;
    }

    void members(const Node &node, const std::string &path) {
        std::map<std::string, int> seen;
        for (const Node &member : node.content()) {
            if (member.text == "-") continue;
            if (member.is("spare")) {
                rows.push_back(row(path, "", AST_FIELD_SPARE, bits(member)));
                continue;
            }
            const Name name(member.text);
            field(member.only(), path + "/" + name.name + (seen[name.name]++ != 0 ? "_2" : ""), name.title);
        }
    }

    void value(const Node &content, const std::string &path, const std::string &title, unsigned bits) {
        static const std::regex kQuantity("(un)?signed quantity (\\S+) \"(.*?)\".*");
        std::smatch found;
        if (std::regex_match(content.text, found, kQuantity)) {
            const auto mended = kMended.find(path);
            const std::string step = lowest_terms(mended == kMended.end() ? found[2].str() : mended->second);
            const bool is_signed = !found[1].matched;
            rows.push_back(
                row(path, title, is_signed ? AST_FIELD_SIGNED : AST_FIELD_UNSIGNED, bits, step + " " + found[3].str()));
        } else if (content.is("table")) {
            rows.push_back(row(path, title, AST_FIELD_CODE, bits, texts(content, kReversed.contains(path))));
        } else if (content.is("case")) {
            rows.push_back(row(path, title, AST_FIELD_EITHER, bits));
            for (const Node &reading : content.inner)
                if (!reading.is("default:")) value(reading.only(), path, title, bits);
        } else {
            static const std::map<std::string, uint32_t> kKinds = {{"raw", AST_FIELD_RAW},
                                                                   {"string octal", AST_FIELD_OCTAL},
                                                                   {"string icao", AST_FIELD_ICAO},
                                                                   {"string ascii", AST_FIELD_ASCII},
                                                                   {"bds", AST_FIELD_REGISTER},
                                                                   {"bds 30", AST_FIELD_REGISTER},
                                                                   {"bds ?", AST_FIELD_RAW},
                                                                   {"unsigned integer", AST_FIELD_UNSIGNED},
                                                                   {"signed integer", AST_FIELD_SIGNED}};
            std::string kind = content.text.substr(0, content.text.find_first_of("<>"));
            while (!kind.empty() && kind.back() == ' ') kind.pop_back();
            const auto known = kKinds.find(kind);
            ASSERT_NE(known, kKinds.end()) << path << ": " << content.text;
            rows.push_back(row(path, title, known->second, bits));
        }
    }

    static std::string texts(const Node &table, bool is_reversed) {
        std::map<int, std::string> by_code;
        for (const Node &code : table.inner) {
            std::string text = code.text;
            for (const Node &more : code.inner) text += " " + more.text;
            const size_t first = text.find_first_not_of(' ', text.find(':') + 1);
            by_code[std::stoi(text) ^ int{is_reversed}] = first == std::string::npos ? "" : text.substr(first);
        }
        std::string all;
        for (const auto &[code, text] : by_code) all += std::to_string(code) + "=" + text + ";";
        return all;
    }
};

// ---- The rows that the library describes ----

std::string texts_of(const ast_field_t &field) {
    std::string all;
    for (uint64_t code = 0; code < 256 && *field.texts; ++code) {
        char text[1024];
        ast_field_get_text(text, sizeof text, &field, code);
        if (*text) all += std::to_string(code) + "=" + text + ";";
    }
    return all;
}

void append_row(void *context, const ast_field_t *field) {
    std::string rest;
    if (field->numerator != 0)
        rest = std::to_string(field->numerator) + "/" + std::to_string(field->denominator) + " " + field->unit;
    if (field->kind == AST_FIELD_CODE) rest = texts_of(*field);
    static_cast<Rows *>(context)->push_back(row(field->path, field->title, field->kind, field->bits, rest));
}

std::string reference(const std::string &name) {
    if (name == "RE") return "REF";
    if (name == "SP") return "SPF";
    return name == "rfs" ? "RFS" : name;
}

constexpr uint32_t kMaxFrn = 49;

std::map<std::string, ast_dataitem_type_t> types_by_reference(uint32_t category, const ast_uap_t &uap) {
    std::map<std::string, ast_dataitem_type_t> types;
    for (const ast_uap_t &each : {AST_UAP_PUBLISHED_OTHER, uap}) // some items are announced by the other one only
        for (uint32_t frn = 1; frn <= kMaxFrn; ++frn)
            if (const ast_dataitem_type_t type = each.get_dataitem(category, frn))
                types[std::string(ast_dataitem_type_to_str(type)).substr(5)] = type;
    return types;
}

// ---- Where the definitions are, and which are compared ----

std::filesystem::path folder() {
    if (const char *given = std::getenv("AST_STANDARD")) return given;
    return std::filesystem::path(AST_TREE) / "../shared/standard";
}

std::vector<int> version(const std::string &text) {
    std::vector<int> numbers;
    std::istringstream parts(text);
    for (std::string part; std::getline(parts, part, '.');) numbers.push_back(std::stoi(part));
    return numbers;
}

// The newest edition of each category, or of each Reserved Expansion Field, by category.
std::map<uint32_t, std::string> newest(const char *form) {
    std::map<uint32_t, std::string> editions;
    const std::regex pattern(form);
    for (const auto &file : std::filesystem::directory_iterator(folder())) {
        const std::string name = file.path().filename().string();
        std::smatch found;
        if (!std::regex_match(name, found, pattern)) continue;
        std::string &edition = editions[static_cast<uint32_t>(std::stoul(found[1]))];
        if (edition.empty() || version(edition) < version(found[2])) edition = found[2];
    }
    return editions;
}

std::string number_of(uint32_t category) {
    const std::string digits = std::to_string(category);
    return std::string(3 - digits.size(), '0') + digits;
}

class Standard : public testing::Test {
protected:
    void SetUp() override {
        if (!std::filesystem::is_directory(folder())) GTEST_SKIP() << "no definitions in " << folder();
        ast_log_handler_reg(nullptr); // some FRNs are asked for that a profile does not define
    }
    void TearDown() override { ast_log_handler_reg(ast_log_stdout); }

    // Every item of an edition; ref is the edition of its Reserved Expansion Field, or empty.
    static void compare(uint32_t category, const std::string &edition, const ast_uap_t &uap, const std::string &ref) {
        const std::string category_digits = number_of(category);
        const Node root = read_tree(folder() / ("cat" + category_digits + "-" + edition + ".ast"));
        const auto types = types_by_reference(category, uap);
        for (const Node &section : root.inner) {
            if (!section.is("items")) continue;
            for (const Node &item : section.inner) {
                const Name name(item.text);
                const std::string path = "I" + category_digits + "/" + reference(name.name);
                Expected expected;
                if (path.ends_with("REF") && !ref.empty())
                    expected.field(read_tree(folder() / ("cat" + category_digits + "-ref-" + ref + ".ast")).inner.at(3),
                                   path, name.title);
                else
                    expected.field(item.only(), path, name.title);
                const auto type = types.find(reference(name.name));
                ASSERT_NE(type, types.end()) << path << " is announced by no FRN of edition " << edition;
                Rows described;
                EXPECT_TRUE(ast_dataitem_describe(type->second, uap, append_row, &described)) << path;
                EXPECT_EQ(described, expected.rows) << path << " of edition " << edition;
            }
        }
    }

    // The FRNs of one profile of a definition, as references; "" for a spare one.
    static Rows frns(const Node &list) {
        Rows references;
        for (const Node &each : list.inner) references.push_back(each.text == "-" ? "" : reference(each.text));
        return references;
    }
    static Rows frns(uint32_t category, const ast_uap_t &uap) {
        Rows references;
        for (uint32_t frn = 1; frn <= uap.max_frn(category); ++frn) {
            const ast_dataitem_type_t type = uap.get_dataitem(category, frn);
            references.push_back(type ? std::string(ast_dataitem_type_to_str(type)).substr(5) : "");
        }
        return references;
    }
};

TEST_F(Standard, EveryCategoryInItsNewestEdition) {
    const auto refs = newest("cat(\\d+)-ref-([\\d.]+)\\.ast");
    const auto editions = newest("cat(\\d+)-([\\d.]+)\\.ast");
    EXPECT_EQ(editions.size(), 27U);
    for (const auto &[category, edition] : editions)
        compare(category, edition, AST_UAP_PUBLISHED, refs.contains(category) ? refs.at(category) : "");
}

TEST_F(Standard, OlderEditionsOfCategory021) {
    const std::string ref = newest("cat(\\d+)-ref-([\\d.]+)\\.ast").at(21);
    compare(21, "2.4", AST_UAP_CAT021_VER24, ref);
    compare(21, "2.1", AST_UAP_CAT021_VER21, ref);
    compare(21, "0.26", AST_UAP_CAT021_VER026, "");
    compare(21, "0.23", AST_UAP_CAT021_VER023, "");
}

TEST_F(Standard, FrnsOfThePublishedProfiles) {
    for (const auto &[category, edition] : newest("cat(\\d+)-([\\d.]+)\\.ast")) {
        const Node root = read_tree(folder() / ("cat" + number_of(category) + "-" + edition + ".ast"));
        for (const Node &section : root.inner) {
            if (section.is("uap")) {
                EXPECT_EQ(frns(category, AST_UAP_PUBLISHED), frns(section)) << category;
            }
            if (!section.is("uaps")) continue;
            for (const Node &list : section.inner.at(0).inner) {
                const bool is_other = list.text == "plot" || list.text == "uplink";
                EXPECT_EQ(frns(category, is_other ? AST_UAP_PUBLISHED_OTHER : AST_UAP_PUBLISHED), frns(list))
                    << category;
            }
        }
    }
}

} // namespace
