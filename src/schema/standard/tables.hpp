// The table of each edition, which has a source of its own.
#pragma once

#include "schema/edition.hpp"

namespace ast::schema {

extern const Edition kCat001;
extern const Edition kCat002;
extern const Edition kCat004;
extern const Edition kCat007;
extern const Edition kCat008;
extern const Edition kCat009;
extern const Edition kCat010;
extern const Edition kCat011;
extern const Edition kCat015;
extern const Edition kCat016;
extern const Edition kCat017;
extern const Edition kCat018;
extern const Edition kCat019;
extern const Edition kCat020;
extern const Edition kCat021;
extern const Edition kCat021Ed023;
extern const Edition kCat021Ed026;
extern const Edition kCat021Ed21;
extern const Edition kCat021Ed24;
extern const Edition kCat023;
extern const Edition kCat025;
extern const Edition kCat032;
extern const Edition kCat034;
extern const Edition kCat048;
extern const Edition kCat062;
extern const Edition kCat063;
extern const Edition kCat065;
extern const Edition kCat150;
extern const Edition kCat205;
extern const Edition kCat240;
extern const Edition kCat247;

} // namespace ast::schema
