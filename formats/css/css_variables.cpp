#include "formats/css/css_variables.h"

#include "formats/css/css_limits.h"
#include "formats/css/css_token_stream.h"

#include <algorithm>
#include <functional>
#include <map>
#include <optional>

namespace {

using Kind = CssToken::Kind;
// Null for a variable that has no value.
using Lookup = std::function<const std::u16string*(std::u16string_view)>;

// Writes a value with its variables replaced; false when one has no value, or it is too long.
class Substitution {
  public:
    explicit Substitution(const Lookup& lookup) : lookup_(lookup) {}

    bool Write(CssTokenStream tokens, int depth) {
        while (!tokens.AtEndRaw()) {
            const CssToken& token = tokens.NextRaw();
            const bool isVariable = token.IsFunction(u"var");
            if (isVariable || token.source.data() != written_) KeepApart();
            if (!(isVariable ? WriteVariable(tokens, depth) : Append(token.source))) return false;
            written_ = isVariable ? nullptr : token.source.data() + token.source.size();
        }
        return true;
    }
    std::u16string Take() { return std::move(text_); }

  private:
    bool WriteVariable(CssTokenStream& tokens, int depth) {
        CssTokenStream arguments = tokens.Arguments();
        const CssToken& name = arguments.Next();
        if (!name.Is(Kind::Ident) || depth >= maxCssVariableDepth) return false;
        const bool hasFallback = arguments.Take(Kind::Comma);
        if (!hasFallback && !arguments.AtEnd()) return false;
        if (const std::u16string* value = lookup_(name.text)) return Append(*value);
        return hasFallback && Write(arguments, depth + 1);
    }

    // What stood apart by a comment, or stands in for a variable, makes no token with what is
    // beside it: `var(--n)px` is no length.
    void KeepApart() {
        if (!text_.empty() && text_.back() != u' ') text_ += u"/**/";
    }

    bool Append(std::u16string_view text) {
        if (text_.size() + text.size() > maxCssVariableUnits) return false;
        text_ += text;
        return true;
    }

    const Lookup& lookup_;
    std::u16string text_;
    const char16_t* written_ = nullptr; // the end of the last token, in its source
};

std::optional<std::u16string> Substituted(std::u16string_view text, const Lookup& lookup) {
    CssTokenizer tokenizer(text);
    const std::vector<CssToken> tokens = CssTokensOf(tokenizer);
    Substitution substitution(lookup);
    if (!substitution.Write(CssTokenStream(tokens), 0)) return std::nullopt;
    return substitution.Take();
}

const std::u16string* Find(const CssVariables& variables, std::u16string_view name) {
    const auto found = std::ranges::lower_bound(variables, name, {}, &CssVariable::name);
    return found != variables.end() && found->name == name ? &found->value : nullptr;
}

// The variables that an element declares, which may use one another.
class Resolver {
  public:
    Resolver(const CssVariables& inherited, std::span<const CssWrittenDeclaration* const> own)
        : inherited_(inherited) {
        for (const CssWrittenDeclaration* declaration : own)
            if (own_.size() < maxCssVariables || own_.contains(declaration->name))
                own_[declaration->name] = {declaration->value, State::Written};
    }

    CssVariables Resolve() {
        for (auto& [name, variable] : own_)
            ResolveOne(name, variable, 0);
        CssVariables all;
        for (const CssVariable& variable : inherited_)
            if (!own_.contains(variable.name)) all.push_back(variable);
        for (const auto& [name, variable] : own_)
            if (variable.state == State::Valid)
                all.push_back({std::u16string(name), variable.value});
        std::ranges::sort(all, {}, &CssVariable::name);
        if (all.size() > maxCssVariables) all.resize(maxCssVariables);
        return all;
    }

  private:
    enum class State : std::uint8_t { Written, Open, Valid, Invalid };
    struct Variable {
        std::u16string value;
        State state = State::Written;
    };

    void ResolveOne(std::u16string_view name, Variable& variable, int depth) {
        if (variable.state == State::Open) variable.state = State::Invalid; // by way of itself
        if (variable.state != State::Written) return;
        variable.state = State::Open;
        const bool isInherited =
            CssEqual(variable.value, u"inherit") || CssEqual(variable.value, u"unset");
        const Lookup lookup = [&](std::u16string_view other) { return ValueOf(other, depth + 1); };
        std::optional<std::u16string> value;
        if (isInherited) {
            if (const std::u16string* outer = Find(inherited_, name)) value = *outer;
        } else if (!CssEqual(variable.value, u"initial") && depth < maxCssVariableDepth)
            value = Substituted(variable.value, lookup);
        const bool isValid = value && variable.state == State::Open;
        variable.state = isValid ? State::Valid : State::Invalid;
        if (isValid) variable.value = std::move(*value);
    }

    const std::u16string* ValueOf(std::u16string_view name, int depth) {
        const auto own = own_.find(name);
        if (own == own_.end()) return Find(inherited_, name);
        ResolveOne(name, own->second, depth);
        return own->second.state == State::Valid ? &own->second.value : nullptr;
    }

    const CssVariables& inherited_;
    std::map<std::u16string_view, Variable> own_;
};

} // namespace

bool IsCssVariable(std::u16string_view name) {
    return name.size() > 2 && name.starts_with(u"--");
}

bool UsesCssVariables(std::span<const CssToken> value) {
    return std::ranges::any_of(value,
                               [](const CssToken& token) { return token.IsFunction(u"var"); });
}

CssVariables ResolveCssVariables(const CssVariables& inherited,
                                 std::span<const CssWrittenDeclaration* const> own) {
    return Resolver(inherited, own).Resolve();
}

std::optional<std::u16string> SubstituteCssVariables(std::u16string_view value,
                                                     const CssVariables& variables) {
    const Lookup lookup = [&](std::u16string_view name) { return Find(variables, name); };
    return Substituted(value, lookup);
}
