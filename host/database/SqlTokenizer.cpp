#include "host/database/SqlTokenizer.h"

#include "base/Error.h"

#include <array>

namespace host {

namespace {

constexpr std::int32_t SyntaxErrorNumber = lumarin::ObjectErrorBase + 3075;
constexpr std::size_t LongestStatement = 1'000'000;
constexpr std::size_t LongestQuotedStatement = 2'000;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }
bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

class Tokenizer {
public:
    explicit Tokenizer(std::string_view sql) : sql_(sql) {}

    std::vector<SqlToken> All() {
        if (sql_.size() > LongestStatement) RefuseSql("The statement is too long", sql_);
        if (sql_.find('\0') != std::string_view::npos)
            RefuseSql("The statement holds a zero character", sql_);
        std::vector<SqlToken> tokens;
        do tokens.push_back(Next());
        while (tokens.back().kind != TokenKind::End);
        return tokens;
    }

private:
    SqlToken Next() {
        while (at_ < sql_.size() && IsBlank(sql_[at_])) ++at_;
        if (at_ == sql_.size()) return {TokenKind::End, "", at_};
        const char first = sql_[at_];
        if (first == '\'' || first == '"') return Quoted(first);
        if (first == '[') return Bracketed();
        if (IsDigit(first)) return Number();
        if (IsLetter(first)) return Word();
        return Symbol();
    }

    /// A doubled delimiter stands for itself.
    SqlToken Quoted(char delimiter) {
        SqlToken token{TokenKind::Text, "", at_++};
        for (; at_ < sql_.size(); ++at_) {
            if (sql_[at_] == delimiter) {
                if (Ahead(1) != delimiter) {
                    ++at_;
                    return token;
                }
                ++at_;
            }
            token.text += sql_[at_];
        }
        RefuseSql("A text is not closed", sql_);
    }

    SqlToken Bracketed() {
        const std::size_t end = sql_.find(']', at_);
        if (end == std::string_view::npos) RefuseSql("A name in brackets is not closed", sql_);
        SqlToken token{TokenKind::BracketedName, std::string(sql_.substr(at_ + 1, end - at_ - 1)), at_};
        if (token.text.empty()) RefuseSql("A name in brackets is empty", sql_);
        at_ = end + 1;
        return token;
    }

    SqlToken Number() {
        const std::size_t start = at_;
        while (IsDigit(Ahead(0))) ++at_;
        if (Ahead(0) == '.' && IsDigit(Ahead(1)))
            for (++at_; IsDigit(Ahead(0));) ++at_;
        if (IsLetter(Ahead(0))) RefuseSql("A number runs into a word", sql_);
        return {TokenKind::Number, std::string(sql_.substr(start, at_ - start)), start};
    }

    SqlToken Word() {
        const std::size_t start = at_;
        while (IsLetter(Ahead(0)) || IsDigit(Ahead(0))) ++at_;
        return {TokenKind::Word, std::string(sql_.substr(start, at_ - start)), start};
    }

    SqlToken Symbol() {
        static constexpr std::array<std::string_view, 3> Pairs = {"<>", "<=", ">="};
        const std::string_view two = sql_.substr(at_, 2);
        if (two == "--" || two == "/*") RefuseSql("Comments are not allowed", sql_);
        std::size_t length = 1;
        for (const std::string_view pair : Pairs)
            if (two == pair) length = 2;
        if (length == 1 && std::string_view("(),.;=<>+-*/").find(sql_[at_]) == std::string_view::npos)
            RefuseSql("Unexpected character at position " + std::to_string(at_ + 1), sql_);
        SqlToken token{TokenKind::Symbol, std::string(two.substr(0, length)), at_};
        at_ += length;
        return token;
    }

    char Ahead(std::size_t distance) const {
        return at_ + distance < sql_.size() ? sql_[at_ + distance] : '\0';
    }

    std::string_view sql_;
    std::size_t at_ = 0;
};

}  // namespace

std::vector<SqlToken> TokenizeSql(std::string_view sql) { return Tokenizer(sql).All(); }

void RefuseSql(const std::string& reason, std::string_view sql) {
    throw lumarin::Error(SyntaxErrorNumber, "database",
                         reason + " in: " + std::string(sql.substr(0, LongestQuotedStatement)));
}

}  // namespace host
