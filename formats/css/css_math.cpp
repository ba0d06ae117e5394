#include "formats/css/css_math.h"

#include "formats/css/css_limits.h"

#include <algorithm>
#include <cmath>

namespace {

using Kind = CssToken::Kind;
using Step = CssMathStep::Kind;
using Type = CssMathType;

class MathReader {
  public:
    explicit MathReader(CssMathResult& result) : result_(result) {}

    std::optional<Type> ReadFunction(CssTokenStream& tokens) {
        const CssToken& name = tokens.Next();
        CssTokenStream arguments = tokens.Arguments();
        if (++depth_ > maxCssMathDepth) return std::nullopt;
        const auto type = ReadArguments(name, arguments);
        --depth_;
        return arguments.AtEnd() ? type : std::nullopt;
    }

  private:
    std::optional<Type> ReadArguments(const CssToken& name, CssTokenStream& arguments) {
        if (name.IsFunction(u"clamp")) {
            const auto min = ReadSum(arguments), wanted = ReadNext(arguments, min);
            const auto max = ReadNext(arguments, wanted);
            if (!max) return std::nullopt;
            Add(Step::Min);
            Add(Step::Max); // min wins over max
            return max;
        }
        if (name.IsFunction(u"round") || name.IsFunction(u"mod") || name.IsFunction(u"rem"))
            return ReadRounding(name, arguments);
        std::optional<Type> type = ReadSum(arguments);
        const bool isMin = name.IsFunction(u"min");
        while (type && (isMin || name.IsFunction(u"max")) && !arguments.AtEnd()) {
            type = ReadNext(arguments, type);
            Add(isMin ? Step::Min : Step::Max);
        }
        return type;
    }

    std::optional<Type> ReadRounding(const CssToken& name, CssTokenStream& arguments) {
        Step step = name.IsFunction(u"mod")   ? Step::Mod
                    : name.IsFunction(u"rem") ? Step::Rem
                                              : Step::RoundNearest;
        if (step == Step::RoundNearest && arguments.Peek().Is(Kind::Ident)) {
            if (arguments.TakeIdent(u"up"))
                step = Step::RoundUp;
            else if (arguments.TakeIdent(u"down"))
                step = Step::RoundDown;
            else if (arguments.TakeIdent(u"to-zero"))
                step = Step::RoundToZero;
            else if (!arguments.TakeIdent(u"nearest"))
                return std::nullopt;
            if (!arguments.Take(Kind::Comma)) return std::nullopt;
        }
        auto type = ReadSum(arguments);
        const bool isStepLeftOut = type == Type::Number && arguments.AtEnd();
        if (isStepLeftOut && name.IsFunction(u"round"))
            type = Push(CssValue::Number(1), Type::Number);
        else
            type = ReadNext(arguments, type);
        Add(step);
        return type;
    }

    // After a comma, of the same type as what was before.
    std::optional<Type> ReadNext(CssTokenStream& tokens, std::optional<Type> before) {
        if (!before || !tokens.Take(Kind::Comma)) return std::nullopt;
        const auto type = ReadSum(tokens);
        return type == before ? type : std::nullopt;
    }

    std::optional<Type> ReadSum(CssTokenStream& tokens) {
        auto type = ReadProduct(tokens);
        while (type && (tokens.Peek().IsDelim(u'+') || tokens.Peek().IsDelim(u'-'))) {
            const Step step = tokens.Next().IsDelim(u'+') ? Step::Add : Step::Subtract;
            if (ReadProduct(tokens) != type) return std::nullopt;
            Add(step);
        }
        return type;
    }

    std::optional<Type> ReadProduct(CssTokenStream& tokens) {
        auto type = ReadValue(tokens);
        while (type && (tokens.Peek().IsDelim(u'*') || tokens.Peek().IsDelim(u'/'))) {
            const bool divides = tokens.Next().IsDelim(u'/');
            const auto right = ReadValue(tokens);
            if (!right || (right == Type::Length && (divides || type == Type::Length)))
                return std::nullopt;
            type = std::max(*type, *right);
            Add(divides ? Step::Divide : Step::Multiply);
        }
        return type;
    }

    std::optional<Type> ReadValue(CssTokenStream& tokens) {
        const CssToken& token = tokens.Peek();
        if (token.Is(Kind::OpenParen) || IsCssMath(token)) return ReadFunction(tokens);
        tokens.Next();
        if (token.Is(Kind::Number)) return Push(CssValue::Number(token.number), Type::Number);
        if (token.Is(Kind::Percentage)) {
            result_.hasPercent = true;
            return Push(CssValue::Percent(token.number), Type::Length);
        }
        const auto length = CssLengthOf(token);
        return length ? Push(*length, Type::Length) : std::nullopt;
    }

    std::optional<Type> Push(const CssValue& value, Type type) {
        if (result_.steps.size() >= maxCssMathSteps) return std::nullopt;
        result_.steps.push_back({Step::Value, value});
        return type;
    }
    void Add(Step step) { result_.steps.push_back({step, {}}); }

    CssMathResult& result_;
    int depth_ = 0;
};

struct Sum {
    float pixels = 0, percent = 0, number = 0;
    bool isNumber = false;

    Sum Times(float factor) const {
        return {pixels * factor, percent * factor, number * factor, isNumber};
    }
    Sum Plus(const Sum& other) const {
        return {pixels + other.pixels, percent + other.percent, number + other.number, isNumber};
    }
};

Sum SumOf(const CssValue& value, const CssLengthBase& base) {
    if (value.kind == CssValue::Kind::Number) return {0, 0, value.number, true};
    if (value.kind == CssValue::Kind::Percent) return {0, value.number, 0, false};
    return {CssPixels(value, base), 0, 0, false};
}

Sum Product(const Sum& left, const Sum& right) {
    return left.isNumber ? right.Times(left.number) : left.Times(right.number);
}

// A percentage is of the window's width.
float SizeOf(const Sum& sum, const CssLengthBase& base) {
    const float whole = base.medium ? base.medium->viewportWidth : 0;
    return sum.number + sum.pixels + sum.percent * whole / 100;
}

Sum Smaller(const Sum& left, const Sum& right, const CssLengthBase& base) {
    return SizeOf(left, base) <= SizeOf(right, base) ? left : right;
}

Sum Larger(const Sum& left, const Sum& right, const CssLengthBase& base) {
    return SizeOf(left, base) <= SizeOf(right, base) ? right : left;
}

float Rounded(float value, float step, Step how) {
    if (step == 0) return 0;
    const float times = value / std::abs(step);
    switch (how) {
    case Step::RoundNearest: return std::floor(times + 0.5f) * std::abs(step);
    case Step::RoundUp: return std::ceil(times) * std::abs(step);
    case Step::RoundDown: return std::floor(times) * std::abs(step);
    case Step::RoundToZero: return std::trunc(times) * std::abs(step);
    case Step::Mod: return value - std::floor(value / step) * step;
    default: return std::fmod(value, step);
    }
}

Sum Rounded(const Sum& left, const Sum& right, const CssLengthBase& base, Step how) {
    if (left.isNumber) return {0, 0, Rounded(left.number, right.number, how), true};
    if (left.percent == 0 && right.percent == 0)
        return {Rounded(left.pixels, right.pixels, how), 0, 0, false};
    return {Rounded(SizeOf(left, base), SizeOf(right, base), how), 0, 0, false};
}

CssValue ValueOf(const Sum& sum) {
    constexpr float max = 32'767;
    if (std::isnan(sum.number + sum.pixels + sum.percent)) return CssValue::Pixels(0);
    if (sum.isNumber) return CssValue::Number(ClampCssPixels(sum.number));
    if (sum.percent == 0) return CssValue::Pixels(ClampCssPixels(sum.pixels));
    if (sum.pixels == 0) return CssValue::Percent(sum.percent);
    CssValue value = CssValue::OfKind(CssValue::Kind::Sum);
    value.number = ClampCssPixels(sum.pixels);
    value.keyword =
        static_cast<std::uint16_t>(std::lround(std::clamp(sum.percent * 100, -max, max)));
    return value;
}

} // namespace

bool IsCssMath(const CssToken& token) {
    return token.IsFunction(u"calc") || token.IsFunction(u"min") || token.IsFunction(u"max") ||
           token.IsFunction(u"clamp") || token.IsFunction(u"round") || token.IsFunction(u"mod") ||
           token.IsFunction(u"rem") || token.IsFunction(u"-webkit-calc");
}

std::optional<CssMathResult> ReadCssMath(CssTokenStream& tokens) {
    if (!IsCssMath(tokens.Peek())) return std::nullopt;
    CssMathResult result;
    const auto type = MathReader(result).ReadFunction(tokens);
    if (!type) return std::nullopt;
    result.type = *type;
    return result;
}

CssValue EvaluateCssMath(const CssMath& math, const CssLengthBase& base, bool& comparesPercent) {
    std::vector<Sum> sums;
    for (const CssMathStep& step : math) {
        if (step.kind == Step::Value) {
            sums.push_back(SumOf(step.value, base));
            continue;
        }
        const Sum right = sums.back();
        sums.pop_back();
        Sum& left = sums.back();
        const bool compares = step.kind == Step::Min || step.kind == Step::Max;
        comparesPercent |= compares && left.percent != right.percent;
        comparesPercent |=
            step.kind >= Step::RoundNearest && (left.percent != 0 || right.percent != 0);
        switch (step.kind) {
        case Step::Add: left = left.Plus(right); break;
        case Step::Subtract: left = left.Plus(right.Times(-1)); break;
        case Step::Multiply: left = Product(left, right); break;
        case Step::Divide: left = left.Times(right.number == 0 ? 0 : 1 / right.number); break;
        case Step::Min: left = Smaller(left, right, base); break;
        case Step::Max: left = Larger(left, right, base); break;
        default: left = Rounded(left, right, base, step.kind); break;
        }
    }
    return ValueOf(sums.back());
}
