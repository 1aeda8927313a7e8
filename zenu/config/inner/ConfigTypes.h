#pragma once

// The nine types of a setting, in the order of all interfaces: the word in the names of operations,
// what a get gives, what a set takes.
#define ZENU_CONFIG_TYPES(FOR_TYPE)                                                                \
    FOR_TYPE(Color, QColor, QColor const &)                                                        \
    FOR_TYPE(Bool, bool, bool)                                                                     \
    FOR_TYPE(Int, int, int)                                                                        \
    FOR_TYPE(UInt, unsigned int, unsigned int)                                                     \
    FOR_TYPE(Int64, long long, long long const &)                                                  \
    FOR_TYPE(Pen, QPen, QPen const &)                                                              \
    FOR_TYPE(Font, QFont, QFont const &)                                                           \
    FOR_TYPE(Brush, QBrush, QBrush const &)                                                        \
    FOR_TYPE(String, char const *, char const *)
