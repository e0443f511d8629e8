#pragma once

#include "syntax/token.h"
#include "syntax/tree.h"

#include <array>
#include <cstdint>

namespace tarn {

/// An operator of expressions: its token, the tag of its node, and how tightly it binds.
struct OperatorInfo {
    Token token;
    std::uint8_t tag;
    std::int8_t precedence; ///< of a binary operator 0 to 9, the higher the tighter; else -1
};

/// The binary operators, in order of tag, from `treetag::OR_OR` on.
constexpr std::array<OperatorInfo, 19> binaryOperators{{
    {Token::OR_OR, treetag::OR_OR, 0},      {Token::AND_AND, treetag::AND_AND, 1},
    {Token::EQUAL, treetag::EQ, 5},         {Token::NOT_EQUAL, treetag::NE, 5},
    {Token::LESS, treetag::LT, 6},          {Token::GREATER, treetag::GT, 6},
    {Token::LESS_EQUAL, treetag::LE, 6},    {Token::GREATER_EQUAL, treetag::GE, 6},
    {Token::BAR, treetag::BITOR, 2},        {Token::CARET, treetag::BITXOR, 3},
    {Token::AMPERSAND, treetag::BITAND, 4}, {Token::SHIFT_LEFT, treetag::SHL, 7},
    {Token::SHIFT_RIGHT, treetag::SHR, 7},  {Token::UNSIGNED_SHIFT_RIGHT, treetag::USHR, 7},
    {Token::PLUS, treetag::PLUS, 8},        {Token::MINUS, treetag::MINUS, 8},
    {Token::STAR, treetag::MUL, 9},         {Token::SLASH, treetag::DIV, 9},
    {Token::PERCENT, treetag::MOD, 9},
}};

/// The assignments, in order of tag, from `treetag::ASSIGN` on.
constexpr std::array<OperatorInfo, 12> assignmentOperators{{
    {Token::ASSIGN, treetag::ASSIGN, -1},
    {Token::OR_ASSIGN, treetag::BITOR_ASG, -1},
    {Token::XOR_ASSIGN, treetag::BITXOR_ASG, -1},
    {Token::AND_ASSIGN, treetag::BITAND_ASG, -1},
    {Token::SHIFT_LEFT_ASSIGN, treetag::SHL_ASG, -1},
    {Token::SHIFT_RIGHT_ASSIGN, treetag::SHR_ASG, -1},
    {Token::UNSIGNED_SHIFT_RIGHT_ASSIGN, treetag::USHR_ASG, -1},
    {Token::PLUS_ASSIGN, treetag::PLUS_ASG, -1},
    {Token::MINUS_ASSIGN, treetag::MINUS_ASG, -1},
    {Token::STAR_ASSIGN, treetag::MUL_ASG, -1},
    {Token::SLASH_ASSIGN, treetag::DIV_ASG, -1},
    {Token::PERCENT_ASSIGN, treetag::MOD_ASG, -1},
}};

/// The unary operators, in order of tag, from `treetag::POS` on.
constexpr std::array<OperatorInfo, 8> unaryOperators{{
    {Token::PLUS, treetag::POS, -1},
    {Token::MINUS, treetag::NEG, -1},
    {Token::NOT, treetag::NOT, -1},
    {Token::TILDE, treetag::COMPL, -1},
    {Token::INCREMENT, treetag::PREINC, -1},
    {Token::DECREMENT, treetag::PREDEC, -1},
    {Token::INCREMENT, treetag::POSTINC, -1},
    {Token::DECREMENT, treetag::POSTDEC, -1},
}};

/// Precedence of the binary operator of a token kind, and of `instanceof`; -1 for all other kinds.
constexpr std::array<std::int8_t, TOKEN_KINDS> binaryPrecedence = [] {
    std::array<std::int8_t, TOKEN_KINDS> table{};
    table.fill(-1);
    for (const OperatorInfo& op : binaryOperators) table[static_cast<std::size_t>(op.token)] = op.precedence;
    table[static_cast<std::size_t>(Token::INSTANCEOF)] = table[static_cast<std::size_t>(Token::LESS)];
    return table;
}();

/// Tag of the binary operator or assignment of a token kind; 0 for all other kinds.
constexpr std::array<std::uint8_t, TOKEN_KINDS> infixTags = [] {
    std::array<std::uint8_t, TOKEN_KINDS> table{};
    for (const OperatorInfo& op : binaryOperators) table[static_cast<std::size_t>(op.token)] = op.tag;
    for (const OperatorInfo& op : assignmentOperators) table[static_cast<std::size_t>(op.token)] = op.tag;
    return table;
}();

} // namespace tarn
