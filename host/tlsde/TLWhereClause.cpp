#include "tlsde/TLWhereClause.h"

#include <cmath>
#include <cwchar>
#include <cwctype>
#include <string>
#include <vector>

namespace TMObjects {

namespace {

enum class Tri { False, True, Unknown };

Tri triNot(Tri t) {
    if (t == Tri::Unknown) return t;
    return t == Tri::True ? Tri::False : Tri::True;
}

enum class Tok { End, Ident, QuotedIdent, String, Number, Op, LParen, RParen, Comma, Minus };

struct Token {
    Tok kind = Tok::End;
    std::wstring text;
    std::size_t pos = 0;
};

bool identStart(wchar_t c) {
    return std::iswalpha(wint_t(c)) || c == L'_' || c > 127;
}
bool identPart(wchar_t c) {
    return identStart(c) || std::iswdigit(wint_t(c)) || c == L'.';
}

// Splits the text into tokens; false with a message on a character that fits no token.
bool tokenize(const std::wstring& s, std::vector<Token>& out, TLString& error) {
    std::size_t i = 0;
    auto fail = [&](const char* what) {
        error = TLString(what) + TLString(" at ") + TLString::Number(int(i));
        return false;
    };
    while (i < s.size()) {
        const wchar_t c = s[i];
        if (std::iswspace(wint_t(c))) {
            ++i;
            continue;
        }
        Token t;
        t.pos = i;
        if (identStart(c)) {
            std::size_t j = i;
            while (j < s.size() && identPart(s[j])) ++j;
            t.kind = Tok::Ident;
            t.text = s.substr(i, j - i);
            i = j;
        } else if (std::iswdigit(wint_t(c)) ||
                   (c == L'.' && i + 1 < s.size() && std::iswdigit(wint_t(s[i + 1])))) {
            // Decimal only: digits, a fraction, an exponent.
            std::size_t j = i;
            auto digits = [&] {
                while (j < s.size() && std::iswdigit(wint_t(s[j]))) ++j;
            };
            digits();
            if (j < s.size() && s[j] == L'.') {
                ++j;
                digits();
            }
            if (j < s.size() && (s[j] == L'e' || s[j] == L'E')) {
                std::size_t k = j + 1;
                if (k < s.size() && (s[k] == L'+' || s[k] == L'-')) ++k;
                if (k < s.size() && std::iswdigit(wint_t(s[k]))) {
                    j = k;
                    digits();
                }
            }
            t.kind = Tok::Number;
            t.text = s.substr(i, j - i);
            i = j;
        } else if (c == L'\'' || c == L'"' || c == L'[') {
            // 'text' is a string, "name" and [name] are field names; a doubled quote stands
            // for itself.
            const wchar_t close = c == L'[' ? L']' : c;
            std::wstring text;
            std::size_t j = i + 1;
            bool closed = false;
            while (j < s.size()) {
                if (s[j] == close) {
                    if (close != L']' && j + 1 < s.size() && s[j + 1] == close) {
                        text += close;
                        j += 2;
                        continue;
                    }
                    closed = true;
                    ++j;
                    break;
                }
                text += s[j++];
            }
            if (!closed) return fail("unterminated quote");
            t.kind = c == L'\'' ? Tok::String : Tok::QuotedIdent;
            t.text = text;
            i = j;
        } else if (c == L'(' || c == L')' || c == L',' || c == L'-') {
            t.kind = c == L'(' ? Tok::LParen
                               : (c == L')' ? Tok::RParen : (c == L',' ? Tok::Comma : Tok::Minus));
            ++i;
        } else if (c == L'=' || c == L'<' || c == L'>' || c == L'!') {
            std::size_t j = i + 1;
            if (j < s.size() && (s[j] == L'=' || (c == L'<' && s[j] == L'>'))) ++j;
            t.kind = Tok::Op;
            t.text = s.substr(i, j - i);
            if (t.text == L"!" || t.text == L"==") return fail("unknown operator");
            i = j;
        } else {
            return fail("unexpected character");
        }
        out.push_back(std::move(t));
    }
    out.push_back(Token{Tok::End, L"", s.size()});
    return true;
}

// A number when the whole text is one, else false.
bool strictNumber(const TLString& text, double& value) {
    const std::wstring& s = text.toStdWString();
    if (s.empty()) return false;
    wchar_t* end = nullptr;
    value = std::wcstod(s.c_str(), &end);
    if (end == s.c_str()) return false;
    while (*end && std::iswspace(wint_t(*end))) ++end;
    return *end == L'\0';
}

bool numericKind(const TLVariant& v) {
    return v.GetKind() == TLVariant::Int32 || v.GetKind() == TLVariant::Int64 ||
           v.GetKind() == TLVariant::Double;
}

// -1, 0 or 1; numbers compare as numbers, a number and a text that reads as one too, and
// everything else compares as text.
int compareValues(const TLVariant& a, const TLVariant& b) {
    double x = 0, y = 0;
    const bool an = numericKind(a), bn = numericKind(b);
    if ((an || bn) && (an ? (x = a.GetDouble(), true) : strictNumber(a.ToString(), x)) &&
        (bn ? (y = b.GetDouble(), true) : strictNumber(b.ToString(), y))) {
        if (an && bn && a.GetKind() != TLVariant::Double && b.GetKind() != TLVariant::Double) {
            const auto i = a.GetInt64(), j = b.GetInt64();
            return i < j ? -1 : (i > j ? 1 : 0);
        }
        return x < y ? -1 : (x > y ? 1 : 0);
    }
    return a.ToString().compareTo(b.ToString());
}

// SQL LIKE without regard to case: % any run of characters, _ any one character.
bool likeMatch(const std::wstring& text, const std::wstring& pattern) {
    std::size_t t = 0, p = 0, starP = std::wstring::npos, starT = 0;
    auto same = [](wchar_t a, wchar_t b) {
        return std::towlower(wint_t(a)) == std::towlower(wint_t(b));
    };
    while (t < text.size()) {
        if (p < pattern.size() &&
            (pattern[p] == L'_' || (pattern[p] != L'%' && same(pattern[p], text[t])))) {
            ++t;
            ++p;
        } else if (p < pattern.size() && pattern[p] == L'%') {
            starP = p++;
            starT = t;
        } else if (starP != std::wstring::npos) {
            p = starP + 1;
            t = ++starT;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == L'%') ++p;
    return p == pattern.size();
}

}  // namespace

// One operand or one node of the parsed clause.
struct TLWhereClause::Node {
    enum Kind { Field, Id, Literal, And, Or, Not, Compare, In, Like, IsNull, Between };
    Kind kind = Literal;
    TLString name;    // field
    TLVariant value;  // literal
    std::wstring op;  // comparison
    std::vector<std::unique_ptr<Node>> children;
    // The field's index in the fields it was last looked up in; features of one table share them.
    mutable const TLFields* boundFields = nullptr;
    mutable int boundIndex = -1;

    TLVariant valueOf(const TLFeature& f) const {
        if (kind == Literal) return value;
        if (kind == Id) return TLVariant::FromInt(f.GetId());
        const TLFields* fields = f.GetFields();
        if (!fields) return f.GetValue(name);
        if (fields != boundFields) {
            boundFields = fields;
            boundIndex = fields->FindField(name);
        }
        return f.GetValue(boundIndex);
    }

    Tri eval(const TLFeature& f) const {
        switch (kind) {
            case And: {
                Tri result = Tri::True;
                for (const auto& c : children) {
                    const Tri t = c->eval(f);
                    if (t == Tri::False) return t;
                    if (t == Tri::Unknown) result = t;
                }
                return result;
            }
            case Or: {
                Tri result = Tri::False;
                for (const auto& c : children) {
                    const Tri t = c->eval(f);
                    if (t == Tri::True) return t;
                    if (t == Tri::Unknown) result = t;
                }
                return result;
            }
            case Not:
                return triNot(children[0]->eval(f));
            case Compare:
                return compare(f);
            case In:
                return in(f);
            case Like: {
                const TLVariant v = children[0]->valueOf(f), p = children[1]->valueOf(f);
                if (v.IsNull() || p.IsNull()) return Tri::Unknown;
                return likeMatch(v.ToString().toStdWString(), p.ToString().toStdWString())
                           ? Tri::True
                           : Tri::False;
            }
            case IsNull:
                return children[0]->valueOf(f).IsNull() ? Tri::True : Tri::False;
            case Between: {
                const TLVariant v = children[0]->valueOf(f), lo = children[1]->valueOf(f),
                                hi = children[2]->valueOf(f);
                if (v.IsNull() || lo.IsNull() || hi.IsNull()) return Tri::Unknown;
                return compareValues(v, lo) >= 0 && compareValues(v, hi) <= 0 ? Tri::True
                                                                              : Tri::False;
            }
            default:
                return Tri::Unknown;
        }
    }

    Tri compare(const TLFeature& f) const {
        const TLVariant a = children[0]->valueOf(f), b = children[1]->valueOf(f);
        if (a.IsNull() || b.IsNull()) return Tri::Unknown;
        const int c = compareValues(a, b);
        bool r = false;
        if (op == L"=")
            r = c == 0;
        else if (op == L"<>" || op == L"!=")
            r = c != 0;
        else if (op == L"<")
            r = c < 0;
        else if (op == L"<=")
            r = c <= 0;
        else if (op == L">")
            r = c > 0;
        else if (op == L">=")
            r = c >= 0;
        return r ? Tri::True : Tri::False;
    }

    Tri in(const TLFeature& f) const {
        const TLVariant v = children[0]->valueOf(f);
        if (v.IsNull()) return Tri::Unknown;
        Tri result = Tri::False;
        for (std::size_t i = 1; i < children.size(); ++i) {
            const TLVariant item = children[i]->valueOf(f);
            if (item.IsNull())
                result = Tri::Unknown;
            else if (compareValues(v, item) == 0)
                return Tri::True;
        }
        return result;
    }
};

namespace {

using Node = TLWhereClause::Node;
using NodePtr = std::unique_ptr<Node>;

// Recursive descent over the tokens. Nesting is bounded so that hostile text cannot exhaust the
// stack.
class Parser {
public:
    explicit Parser(std::vector<Token> tokens) : mTokens(std::move(tokens)) {}

    NodePtr parse(TLString& error) {
        NodePtr root = orExpr();
        if (root && peek().kind != Tok::End) fail("unexpected text");
        if (!mError.isEmpty()) {
            error = mError;
            return nullptr;
        }
        return root;
    }

private:
    static constexpr int kMaxDepth = 200;

    const Token& peek() const { return mTokens[mPos]; }
    const Token& next() { return mTokens[mPos < mTokens.size() - 1 ? mPos++ : mPos]; }
    bool keyword(const wchar_t* word) const {
        return peek().kind == Tok::Ident &&
               TLString(peek().text).CompareNoCase(TLString(word)) == 0;
    }
    bool keywordAt(std::size_t offset, const wchar_t* word) const {
        const std::size_t i = std::min(mPos + offset, mTokens.size() - 1);
        return mTokens[i].kind == Tok::Ident &&
               TLString(mTokens[i].text).CompareNoCase(TLString(word)) == 0;
    }
    NodePtr fail(const char* what) {
        if (mError.isEmpty())
            mError = TLString(what) + TLString(" at ") + TLString::Number(int(peek().pos));
        return nullptr;
    }
    static NodePtr make(Node::Kind kind) {
        auto n = std::make_unique<Node>();
        n->kind = kind;
        return n;
    }

    NodePtr orExpr() {
        if (++mDepth > kMaxDepth) return fail("nested too deeply");
        NodePtr left = andExpr();
        if (left && keyword(L"OR")) {
            NodePtr node = make(Node::Or);
            node->children.push_back(std::move(left));
            while (keyword(L"OR")) {
                next();
                NodePtr right = andExpr();
                if (!right) return nullptr;
                node->children.push_back(std::move(right));
            }
            left = std::move(node);
        }
        --mDepth;
        return left;
    }

    NodePtr andExpr() {
        NodePtr left = notExpr();
        if (left && keyword(L"AND")) {
            NodePtr node = make(Node::And);
            node->children.push_back(std::move(left));
            while (keyword(L"AND")) {
                next();
                NodePtr right = notExpr();
                if (!right) return nullptr;
                node->children.push_back(std::move(right));
            }
            left = std::move(node);
        }
        return left;
    }

    NodePtr notExpr() {
        if (!keyword(L"NOT")) return predicate();
        if (++mDepth > kMaxDepth) return fail("nested too deeply");
        next();
        NodePtr inner = notExpr();
        --mDepth;
        if (!inner) return nullptr;
        NodePtr node = make(Node::Not);
        node->children.push_back(std::move(inner));
        return node;
    }

    NodePtr predicate() {
        if (peek().kind == Tok::LParen) {
            next();
            NodePtr inner = orExpr();
            if (!inner) return nullptr;
            if (peek().kind != Tok::RParen) return fail("')' expected");
            next();
            return inner;
        }
        NodePtr left = operand();
        if (!left) return nullptr;
        bool negated = false;
        if (keyword(L"NOT") &&
            (keywordAt(1, L"IN") || keywordAt(1, L"LIKE") || keywordAt(1, L"BETWEEN"))) {
            next();
            negated = true;
        }
        NodePtr node;
        if (peek().kind == Tok::Op) {
            node = make(Node::Compare);
            node->op = next().text;
            node->children.push_back(std::move(left));
            NodePtr right = operand();
            if (!right) return nullptr;
            node->children.push_back(std::move(right));
        } else if (keyword(L"IN")) {
            node = inList(std::move(left));
        } else if (keyword(L"LIKE")) {
            next();
            node = make(Node::Like);
            node->children.push_back(std::move(left));
            NodePtr pattern = operand();
            if (!pattern) return nullptr;
            node->children.push_back(std::move(pattern));
        } else if (keyword(L"BETWEEN")) {
            node = between(std::move(left));
        } else if (keyword(L"IS")) {
            next();
            const bool isNot = keyword(L"NOT");
            if (isNot) next();
            if (!keyword(L"NULL")) return fail("NULL expected");
            next();
            node = make(Node::IsNull);
            node->children.push_back(std::move(left));
            if (isNot) negated = true;
        } else {
            return fail("comparison expected");
        }
        if (!node || !negated) return node;
        NodePtr notNode = make(Node::Not);
        notNode->children.push_back(std::move(node));
        return notNode;
    }

    NodePtr inList(NodePtr left) {
        next();
        if (peek().kind != Tok::LParen) return fail("'(' expected");
        next();
        NodePtr node = make(Node::In);
        node->children.push_back(std::move(left));
        for (;;) {
            NodePtr item = operand();
            if (!item) return nullptr;
            node->children.push_back(std::move(item));
            if (peek().kind == Tok::Comma) {
                next();
                continue;
            }
            if (peek().kind != Tok::RParen) return fail("')' expected");
            next();
            return node;
        }
    }

    NodePtr between(NodePtr left) {
        next();
        NodePtr node = make(Node::Between);
        node->children.push_back(std::move(left));
        NodePtr low = operand();
        if (!low) return nullptr;
        if (!keyword(L"AND")) return fail("AND expected");
        next();
        NodePtr high = operand();
        if (!high) return nullptr;
        node->children.push_back(std::move(low));
        node->children.push_back(std::move(high));
        return node;
    }

    NodePtr operand() {
        const Token& t = peek();
        if (t.kind == Tok::Minus) {
            next();
            if (peek().kind != Tok::Number) return fail("number expected");
            return number(L"-" + next().text);
        }
        if (t.kind == Tok::Number) return number(next().text);
        if (t.kind == Tok::String) {
            NodePtr n = make(Node::Literal);
            n->value = TLVariant(TLString(next().text));
            return n;
        }
        if (t.kind == Tok::QuotedIdent) return field(next().text);
        if (t.kind == Tok::Ident) {
            static const wchar_t* reserved[] = {L"AND",  L"OR", L"NOT",    L"IN",
                                                L"LIKE", L"IS", L"BETWEEN"};
            for (const wchar_t* word : reserved)
                if (keyword(word)) return fail("operand expected");
            if (keyword(L"NULL")) {
                next();
                return make(Node::Literal);
            }
            return field(next().text);
        }
        return fail("operand expected");
    }

    NodePtr number(const std::wstring& text) {
        NodePtr n = make(Node::Literal);
        double value = 0;
        if (!strictNumber(TLString(text), value) || !std::isfinite(value))
            return fail("bad number");
        const bool integral = text.find_first_of(L".eE") == std::wstring::npos;
        if (integral && value >= -9.2e18 && value <= 9.2e18)
            n->value = TLVariant::FromInt(std::stoll(text));
        else
            n->value = TLVariant(value);
        return n;
    }

    static NodePtr field(const std::wstring& name) {
        // "FID" is always the feature's id, whatever fields the table has; "__OBJECTID__" is the
        // name tools use for it on every kind of layer.
        const TLString given(name);
        const bool id = given.CompareNoCase("FID") == 0 || given.CompareNoCase("__OBJECTID__") == 0;
        NodePtr n = make(id ? Node::Id : Node::Field);
        n->name = TLString(name);
        return n;
    }

    std::vector<Token> mTokens;
    std::size_t mPos = 0;
    int mDepth = 0;
    TLString mError;
};

}  // namespace

TLWhereClause::TLWhereClause(const TLString& text) {
    if (text.trim().isEmpty()) {
        mEmpty = true;
        return;
    }
    std::vector<Token> tokens;
    if (!tokenize(text.toStdWString(), tokens, mError)) return;
    Parser parser(std::move(tokens));
    mRoot = parser.parse(mError);
}

TLWhereClause::~TLWhereClause() = default;

bool TLWhereClause::Matches(const TLFeature& feature) const {
    if (mEmpty) return true;
    return mRoot && mRoot->eval(feature) == Tri::True;
}

}  // namespace TMObjects
