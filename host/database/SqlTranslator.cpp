#include "host/database/SqlTranslator.h"

#include "base/PutBack.h"
#include "base/Text.h"
#include "host/database/SqlTokenizer.h"

#include <algorithm>
#include <array>

namespace host {

namespace {

constexpr int DeepestNesting = 40;

enum class ValueKind { Unknown, Text, Number };

/// A translated expression. `simple` when it needs no parentheses as an operand of any operator.
struct Expression {
    std::string sql;
    ValueKind kind = ValueKind::Unknown;
    bool simple = false;
};

std::string AsOperand(const Expression& expression) {
    return expression.simple ? expression.sql : "(" + expression.sql + ")";
}

std::string Quoted(std::string_view text, char delimiter) {
    const std::string one(1, delimiter);
    return one + lumarin::text::ReplaceAll(std::string(text), one, one + one) + one;
}

constexpr std::array ReservedWords = {
    "select", "distinct", "from",  "where",  "group", "order", "by",     "as",   "left",    "right", "inner",
    "outer",  "join",     "on",    "and",    "or",    "not",   "in",     "like", "between", "is",    "null",
    "asc",    "desc",     "union", "having", "top",   "into",  "exists", "all",  "with",    "limit"};

/// Descends through the grammar and writes the translation as it goes.
class Translator {
public:
    explicit Translator(std::string_view sql) : sql_(sql), tokens_(TokenizeSql(sql)) {}

    std::string Statement() {
        if (!IsWord("select")) Refuse("Only a SELECT statement is allowed");
        std::string translated = Select();
        TakeSymbol(";");
        if (Current().kind != TokenKind::End) Refuse("Unexpected " + Described());
        return translated;
    }

private:
    // --- Clauses

    std::string Select() {
        const lumarin::Meanwhile nesting(depth_, Deeper());
        Expect("select");
        std::string out = TakeWord("distinct") ? "SELECT DISTINCT " : "SELECT ";
        out += Listed([this] { return SelectItem(); });
        Expect("from");
        out += " FROM " + Listed([this] { return Source(); });
        if (TakeWord("where")) out += " WHERE " + Condition().sql;
        if (TakeWord("group")) {
            Expect("by");
            out += " GROUP BY " + Listed([this] { return Condition().sql; });
        }
        if (TakeWord("order")) {
            Expect("by");
            out += " ORDER BY " + Listed([this] { return OrderItem(); });
        }
        return out;
    }

    template <class Item>
    std::string Listed(Item item) {
        std::string out = item();
        while (TakeSymbol(",")) out += ", " + item();
        return out;
    }

    std::string SelectItem() {
        if (TakeSymbol("*")) return "*";
        std::string out = Condition().sql;
        if (TakeWord("as")) out += " AS " + Name();
        return out;
    }

    std::string OrderItem() {
        std::string out = Condition().sql;
        if (TakeWord("desc")) return out + " DESC";
        TakeWord("asc");
        return out;
    }

    std::string Source() {
        std::string out = Table();
        while (true) {
            std::string join;
            if (TakeWord("left"))
                join = " LEFT";
            else if (TakeWord("right"))
                join = " RIGHT";
            else if (TakeWord("inner"))
                join = " INNER";
            else if (!IsWord("join"))
                return out;
            TakeWord("outer");
            Expect("join");
            out += join + " JOIN " + Table();
            Expect("on");
            out += " ON " + Condition().sql;
        }
    }

    std::string Table() {
        std::string out = Name();
        if (TakeWord("as") || IsName()) out += " AS " + Name();
        return out;
    }

    // --- Conditions, the weakest operator first

    Expression Condition() {
        const lumarin::Meanwhile nesting(depth_, Deeper());
        return Chain("or", " OR ", [this] { return Conjunction(); });
    }

    Expression Conjunction() {
        return Chain("and", " AND ", [this] { return Negation(); });
    }

    template <class Operand>
    Expression Chain(const char* word, const char* translated, Operand operand) {
        Expression left = operand();
        while (TakeWord(word)) left = {left.sql + translated + operand().sql, ValueKind::Number, false};
        return left;
    }

    Expression Negation() {
        bool negated = false;
        while (TakeWord("not")) negated = !negated;
        Expression inner = Comparison();
        return negated ? Expression{"NOT " + AsOperand(inner), ValueKind::Number, false} : inner;
    }

    Expression Comparison() {
        Expression left = Sum();
        for (const char* symbol : {"=", "<>", "<", ">", "<=", ">="})
            if (TakeSymbol(symbol)) return Truth(AsOperand(left) + " " + symbol + " " + AsOperand(Sum()));
        if (TakeWord("is")) {
            const std::string negation = TakeWord("not") ? " NOT" : "";
            Expect("null");
            return Truth(AsOperand(left) + " IS" + negation + " NULL");
        }
        const std::string negation = TakeWord("not") ? "NOT " : "";
        if (TakeWord("like")) return Truth(negation + "like_pattern(" + Sum().sql + ", " + left.sql + ")");
        if (TakeWord("in")) return Truth(AsOperand(left) + " " + negation + "IN (" + InList() + ")");
        if (TakeWord("between")) {
            const std::string low = AsOperand(Sum());
            Expect("and");
            return Truth(AsOperand(left) + " " + negation + "BETWEEN " + low + " AND " + AsOperand(Sum()));
        }
        if (!negation.empty()) Refuse("Unexpected " + Described());
        return left;
    }

    static Expression Truth(std::string sql) { return {std::move(sql), ValueKind::Number, false}; }

    std::string InList() {
        ExpectSymbol("(");
        std::string out = IsWord("select") ? Select() : Listed([this] { return Sum().sql; });
        ExpectSymbol(")");
        return out;
    }

    // --- Values

    Expression Sum() {
        Expression left = Product();
        bool joined = false;  // `left` is a row of "||", which binds tighter than anything else.
        const auto close = [&] {
            if (joined) left = {"(" + left.sql + ")", ValueKind::Text, true};
            joined = false;
        };
        while (IsSymbol("+") || IsSymbol("-")) {
            const bool plus = TakeSymbol("+");
            if (!plus) ExpectSymbol("-");
            const Expression right = Product();
            const bool text = left.kind == ValueKind::Text || right.kind == ValueKind::Text;
            if (plus && text) {
                left = {(joined ? left.sql : AsOperand(left)) + " || " + AsOperand(right), ValueKind::Text,
                        false};
                joined = true;
                continue;
            }
            close();
            if (plus && left.kind == ValueKind::Unknown && right.kind == ValueKind::Unknown)
                left = {"plus(" + left.sql + ", " + right.sql + ")", ValueKind::Unknown, true};
            else
                left = {left.sql + (plus ? " + " : " - ") + right.sql, ValueKind::Number, false};
        }
        close();
        return left;
    }

    Expression Product() {
        Expression left = Factor();
        std::string out = AsOperand(left);
        while (IsSymbol("*") || IsSymbol("/")) {
            // Division never cuts the fraction off.
            const bool times = TakeSymbol("*");
            if (!times) ExpectSymbol("/");
            out += (times ? " * " : " * 1.0 / ") + AsOperand(Factor());
            left = {out, ValueKind::Number, false};
        }
        return left;
    }

    Expression Factor() {
        const lumarin::Meanwhile nesting(depth_, Deeper());
        if (TakeSymbol("-")) return {"-" + AsOperand(Factor()), ValueKind::Number, false};
        if (TakeSymbol("(")) return Parenthesised();
        const SqlToken token = Current();
        if (token.kind == TokenKind::Text) {
            ++at_;
            return {Quoted(token.text, '\''), ValueKind::Text, true};
        }
        if (token.kind == TokenKind::Number) {
            ++at_;
            return {token.text, ValueKind::Number, true};
        }
        if (TakeWord("null")) return {"NULL", ValueKind::Unknown, true};
        if (token.kind == TokenKind::Word && tokens_[at_ + 1].text == "(" &&
            tokens_[at_ + 1].kind == TokenKind::Symbol)
            return Function();
        return Column();
    }

    Expression Parenthesised() {
        Expression inner = IsWord("select") ? Expression{Select(), ValueKind::Unknown, false} : Condition();
        ExpectSymbol(")");
        return {"(" + inner.sql + ")", inner.kind, true};
    }

    Expression Column() {
        std::string out = Name();
        if (TakeSymbol(".")) out += TakeSymbol("*") ? ".*" : "." + Name();
        return {out, ValueKind::Unknown, true};
    }

    Expression Function() {
        if (TakeWord("iif")) return Choice();
        if (TakeWord("isnull")) {
            ExpectSymbol("(");
            const Expression value = Condition();
            ExpectSymbol(")");
            return {"(" + AsOperand(value) + " IS NULL)", ValueKind::Number, true};
        }
        for (const char* name : {"count", "min", "max", "sum"})
            if (TakeWord(name)) return Aggregate(name);
        Refuse("Unknown function " + Current().text);
    }

    Expression Choice() {
        ExpectSymbol("(");
        const Expression condition = Condition();
        ExpectSymbol(",");
        const Expression yes = Condition();
        ExpectSymbol(",");
        const Expression no = Condition();
        ExpectSymbol(")");
        const bool text = yes.kind == ValueKind::Text || no.kind == ValueKind::Text;
        const bool number = yes.kind == ValueKind::Number && no.kind == ValueKind::Number;
        return {"CASE WHEN " + condition.sql + " THEN " + yes.sql + " ELSE " + no.sql + " END",
                text     ? ValueKind::Text
                : number ? ValueKind::Number
                         : ValueKind::Unknown,
                false};
    }

    Expression Aggregate(const std::string& name) {
        ExpectSymbol("(");
        const std::string argument = TakeSymbol("*") ? "*" : Condition().sql;
        ExpectSymbol(")");
        return {name + "(" + argument + ")", ValueKind::Unknown, true};
    }

    // --- Tokens

    const SqlToken& Current() const { return tokens_[at_]; }

    bool IsWord(std::string_view word) const {
        return Current().kind == TokenKind::Word && lumarin::text::EqualsIgnoringCase(Current().text, word);
    }
    bool IsSymbol(std::string_view symbol) const {
        return Current().kind == TokenKind::Symbol && Current().text == symbol;
    }
    bool IsName() const {
        if (Current().kind == TokenKind::BracketedName) return true;
        return Current().kind == TokenKind::Word &&
               std::none_of(ReservedWords.begin(), ReservedWords.end(),
                            [this](const char* word) { return IsWord(word); });
    }

    bool TakeWord(std::string_view word) { return IsWord(word) && ++at_ != 0; }
    bool TakeSymbol(std::string_view symbol) { return IsSymbol(symbol) && ++at_ != 0; }
    void Expect(std::string_view word) {
        if (!TakeWord(word)) Refuse("Expected " + std::string(word) + " before " + Described());
    }
    void ExpectSymbol(std::string_view symbol) {
        if (!TakeSymbol(symbol)) Refuse("Expected " + std::string(symbol) + " before " + Described());
    }
    std::string Name() {
        if (!IsName()) Refuse("Expected a name before " + Described());
        return Quoted(tokens_[at_++].text, '"');
    }

    std::string Described() const {
        return Current().kind == TokenKind::End ? "the end" : "\"" + Current().text + "\"";
    }
    [[noreturn]] void Refuse(const std::string& reason) const { RefuseSql(reason, sql_); }

    /// Keeps the descent, and the nesting of what is written, within bounds.
    int Deeper() const {
        if (depth_ == DeepestNesting) Refuse("The statement is nested too deeply");
        return depth_ + 1;
    }

    std::string_view sql_;
    std::vector<SqlToken> tokens_;
    std::size_t at_ = 0;
    int depth_ = 0;
};

}  // namespace

std::string TranslateSelect(std::string_view sql) { return Translator(sql).Statement(); }

}  // namespace host
