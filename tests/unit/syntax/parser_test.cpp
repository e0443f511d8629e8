#include "unit/syntax/parsing.h"

#include <gtest/gtest.h>

// What the grammar makes of legal sources.

namespace tarn {
namespace {

using namespace tarn::test;

struct Row {
    const char* source;
    const char* tree;
};

TEST(ParserTest, OperatorsBindByPrecedenceAndAssociateToTheLeft) {
    const Row rows[] = {
        {"a + b * c", "(+ a (* b c))"},
        {"a * b + c", "(+ (* a b) c)"},
        {"a - b - c", "(- (- a b) c)"},
        {"a - (b - c)", "(- a (- b c))"},
        {"a || b && c | d ^ e & f == g < h << i + j * k",
         "(|| a (&& b (| c (^ d (& e (== f (< g (<< h (+ i (* j k))))))))))"},
        {"a * b + c << d < e == f & g ^ h | i && j || k",
         "(|| (&& (| (^ (& (== (< (<< (+ (* a b) c) d) e) f) g) h) i) j) k)"},
        {"a / b % c >> d >>> e", "(>>> (>> (% (/ a b) c) d) e)"},
        {"a != b >= c > d <= e", "(!= a (<= (> (>= b c) d) e))"},
        {"a = b = c", "(= a (= b c))"},
        {"a |= b ^= c &= d <<= e >>= f >>>= g += h -= i *= j /= k %= l",
         "(|= a (^= b (&= c (<<= d (>>= e (>>>= f (+= g (-= h (*= i (/= j (%= k l)))))))))))"},
        {"a ? b : c ? d : e", "(? a b (? c d e))"},
        {"a ? b ? c : d : e", "(? a (? b c d) e)"},
        {"a || b ? c : d = e", "(= (? (|| a b) c d) e)"},
        {"-a.b++ * !c", "(* (- (post++ (. a b))) (! c))"},
        {"- -a + ~+b", "(+ (- (- a)) (~ (+ b)))"},
        {"++a - --b", "(- (++ a) (-- b))"},
        {"a-- - -b", "(- (post-- a) (- b))"},
        {"a == b instanceof C", "(== a (instanceof b C))"},
        {"a + b * c instanceof D[] == d", "(== (instanceof (+ a (* b c)) (array D)) d)"},
        {"a && b << c instanceof D && e", "(&& (&& a (instanceof (<< b c) D)) e)"},
        {"a ? b = c : d instanceof E", "(? a (= b c) (instanceof d E))"},
    };
    for (const Row& row : rows) EXPECT_EQ(parseExpression(row.source), row.tree) << row.source;
}

TEST(ParserTest, ParenthesesAreCastsByTheirContentsAndByWhatFollows) {
    const Row rows[] = {
        {"(a) + b", "(+ a b)"},
        {"(a) - b", "(- a b)"},
        {"(a)++", "(post++ a)"},
        {"(int) + b", "(cast int (+ b))"},
        {"(int) -1", "(cast int (- 1))"},
        {"(int) ++b", "(cast int (++ b))"},
        {"(int[]) --b", "(cast (array int) (-- b))"},
        {"(a) b", "(cast a b)"},
        {"(a.b) c", "(cast (. a b) c)"},
        {"(a[]) b", "(cast (array a) b)"},
        {"(a) ~b", "(cast a (~ b))"},
        {"(a) !b", "(cast a (! b))"},
        {"(a) (b) c", "(cast a (cast b c))"},
        {"(a) (b)", "(cast a b)"},
        {"(a) new b()", "(cast a (new - b [] -))"},
        {"(a) this.b", "(cast a (. this b))"},
        {"(a) super.b", "(cast a (. super b))"},
        {"(a) null", "(cast a null)"},
        {"(a) 'x'", "(cast a xc)"},
        {"(a) int.class", "(cast a (. int class))"},
        {"(a) \"x\"", "(cast a xs)"},
        {"(a) b + c", "(+ (cast a b) c)"},
        {"(a) b.c[d]++", "(cast a (post++ (index (. b c) d)))"},
        {"((a)) b", "(cast a b)"},
        {"(a)[b]", "(index a b)"},
        {"(a).b", "(. a b)"},
        {"(a.b()).c", "(. (call (. a b) []) c)"},
        {"(byte) 1 + (a * b)", "(+ (cast byte 1) (* a b))"},
    };
    for (const Row& row : rows) EXPECT_EQ(parseExpression(row.source), row.tree) << row.source;
}

TEST(ParserTest, PrimariesAndTheirSuffixes) {
    const Row rows[] = {
        {"1", "1"},
        {"-2147483648", "(- -2147483648)"},
        {"2L", "2L"},
        {"1.5f", "1.5f"},
        {"0.25", "0.25d"},
        {"'x'", "xc"},
        {"\"x\\ty\"", "x\\tys"},
        {"null", "null"},
        {"true ^ false", "(^ true false)"},
        {"a.b.c", "(. (. a b) c)"},
        {"a.b(c, d)[e].f()", "(call (. (index (call (. a b) [c d]) e) f) [])"},
        {"this.a", "(. this a)"},
        {"A.this.a", "(. (this A) a)"},
        {"a.A.this", "(this (. a A))"},
        {"super.a()", "(call (. super a) [])"},
        {"a.super(b)", "(call (super a) [b])"},
        {"a().super(b)", "(call (super (call a [])) [b])"},
        {"int.class", "(. int class)"},
        {"void.class", "(. void class)"},
        {"a.b.class", "(. (. a b) class)"},
        {"int.class.getName()", "(call (. (. int class) getName) [])"},
        {"int[].class", "(. (array int) class)"},
        {"int[][].class", "(. (array (array int)) class)"},
        {"a.b[].class", "(. (array (. a b)) class)"},
        {"int[].class.getName()", "(call (. (. (array int) class) getName) [])"},
        {"f(int[].class, a[].class)", "(call f [(. (array int) class) (. (array a) class)])"},
        {"a == int[].class", "(== a (. (array int) class))"},
        {"(int[].class)", "(. (array int) class)"},
        {"new A()", "(new - A [] -)"},
        {"new a.A(b, c).d", "(. (new - (. a A) [b c] -) d)"},
        {"a.new B(c)", "(new a B [c] -)"},
        {"a.b.new B().new C()", "(new (new (. a b) B [] -) C [] -)"},
        {"a().new B()", "(new (call a []) B [] -)"},
        {"new A() { int i; }", "(new - A [] (class <+local> - - [] [(var <> int i -)]))"},
        {"a.new B(c) { }", "(new a B [c] (class <+local> - - [] []))"},
        {"new int[3]", "(new[] int [3])"},
        {"new int[3][]", "(new[] (array int) [3])"},
        {"new int[3][4][][]", "(new[] (array (array int)) [3 4])"},
        {"new a.B[c][d]", "(new[] (. a B) [c d])"},
        {"new int[] {1, 2}", "(init (array int) [1 2])"},
        {"new int[][] {{1}, {}, {2, 3,}}", "(init (array (array int)) [(init - [1]) (init - []) (init - [2 3])])"},
        {"new int[] {}.length", "(. (init (array int) []) length)"},
        {"new int[] {,}", "(init (array int) [])"},
    };
    for (const Row& row : rows) EXPECT_EQ(parseExpression(row.source), row.tree) << row.source;
}

TEST(ParserTest, DeclarationsAreToldFromExpressionStatements) {
    const Row rows[] = {
        {"a b;", "(var <> a b -)"},
        {"a.b c;", "(var <> (. a b) c -)"},
        {"a.b[] c;", "(var <> (array (. a b)) c -)"},
        {"int[] a[], b;", "(var <> (array (array int)) a -) (var <> (array int) b -)"},
        {"int a[], b;", "(var <> (array int) a -) (var <> int b -)"},
        {"int a = 1, b = a;", "(var <> int a 1) (var <> int b a)"},
        {"int[] a = {1, {2}};", "(var <> (array int) a (init - [1 (init - [2])]))"},
        {"final int a = 1;", "(var <final> int a 1)"},
        {"a[b] = c;", "(exec (= (index a b) c))"},
        {"a.b = c;", "(exec (= (. a b) c))"},
        {"a.b(c);", "(exec (call (. a b) [c]))"},
        {"a++; --b;", "(exec (post++ a)) (exec (-- b))"},
        {"new A();", "(exec (new - A [] -))"},
        {"new A() { };", "(exec (new - A [] (class <+local> - - [] [])))"},
        {"x: y: f();", "(label x (label y (exec (call f []))))"},
        {"x: int i;", "(label x (var <> int i -))"},
        {"x: ;", "(label x ({} []))"},
        {"x: { }", "(label x ({} []))"},
        {"a ? b : c;", "(exec (? a b c)) | 2:3 not a statement"},
        {"class A { } interface B { }", "(class <+local> A - [] []) (class <interface+local> B - [] [])"},
        {"final class A { }", "(class <final+local> A - [] [])"},
        {"abstract class A { }", "(class <abstract+local> A - [] [])"},
        {"class A { class B { } } class C { }",
         "(class <+local> A - [] [(class <> B - [] [])]) (class <+local> C - [] [])"},
        {"abstract final class A extends B { }", "(class <final abstract+local> A B [] [])"},
    };
    for (const Row& row : rows) EXPECT_EQ(parseStatements(row.source), row.tree) << row.source;
}

TEST(ParserTest, Statements) {
    const Row rows[] = {
        {";;", ""},
        {"{ f(); ; }", "({} [(exec (call f []))])"},
        {"if (a) f();", "(if a ({} [(exec (call f []))]) -)"},
        {"if (a) ;", "(if a ({} []) -)"},
        {"if (a) { } else f();", "(if a ({} [({} [])]) ({} [(exec (call f []))]))"},
        {"if (a) if (b) f(); else g();", "(if a ({} [(if b ({} [(exec (call f []))]) ({} [(exec (call g []))]))]) -)"},
        {"if (a) int i;", "(if a (var <> int i -) -)"},
        {"if (a) int i, j;", "(if a ({} [(var <> int i -) (var <> int j -)]) -)"},
        {"if (a) class A { }", "(if a (class <+local> A - [] []) -)"},
        {"while (a) f();", "(while a ({} [(exec (call f []))]))"},
        {"do f(); while (a);", "(do ({} [(exec (call f []))]) a)"},
        {"for (;;) ;", "(for [] - [] ({} []))"},
        {"for (int i = 0, j[] = a; i < 1; i++, j--) ;",
         "(for [(var <> int i 0) (var <> (array int) j a)] (< i 1) [(post++ i) (post-- j)] ({} []))"},
        {"for (final a.b c = d; ; ) ;", "(for [(var <final> (. a b) c d)] - [] ({} []))"},
        {"for (i = 0, j = 1; ; ) { }", "(for [(= i 0) (= j 1)] - [] ({} [({} [])]))"},
        {"switch (a) { case 1: f(); break; case B: default: int i; }",
         "(switch a [(case 1 [(exec (call f [])) (break -)]) (case B []) (case - [(var <> int i -)])])"},
        {"switch (a) { }", "(switch a [])"},
        {"try { } catch (E e) { } catch (final a.F f) { f(); } finally { }",
         "(try ({} []) [(catch [(var <> E e -)] ({} [])) (catch [(var <final> (. a F) f -)] ({} [(exec (call f "
         "[]))]))] "
         "({} []))"},
        {"try { } finally { }", "(try ({} []) [] ({} []))"},
        {"synchronized (a) { f(); }", "(synchronized a ({} [({} [(exec (call f []))])]))"},
        {"return; return a; throw b;", "(return -) (return a) (throw b)"},
        {"break; break a; continue; continue b;", "(break -) (break a) (continue -) (continue b)"},
        {"try x(); catch (E e) y();",
         "(try (exec (call x [])) [(catch [(var <> E e -)] ({} [(exec (call y []))]))] -)"
         " | warning 2:5 obsolete syntax: '{' now required here; warning 2:22 obsolete syntax: '{' now required here"},
    };
    for (const Row& row : rows) EXPECT_EQ(parseStatements(row.source), row.tree) << row.source;
}

TEST(ParserTest, Members) {
    const Row rows[] = {
        {"int a = 1, b[]; ;", "(var <> int a 1) (var <> (array int) b -)"},
        {"public static final a.B c;", "(var <public static final> (. a B) c -)"},
        {"private transient volatile int a;", "(var <private volatile transient> int a -)"},
        {"C() { }", "(method <> - <init> [] [] ({} []))"},
        {"protected C(int a) throws E, a.F { }",
         "(method <protected> - <init> [(var <> int a -)] [E (. a F)] ({} []))"},
        {"C C() { return null; }", "(method <> C C [] [] ({} [(return null)]))"},
        {"C[] c;", "(var <> (array C) c -)"},
        {"int f()[] { }", "(method <> (array int) f [] [] ({} []))"},
        {"int[] f(final int a[], B b)[];",
         "(method <> (array (array int)) f [(var <final> (array int) a -) (var <> B b -)] [] -)"},
        {"synchronized native void f();", "(method <synchronized native> void f [] [] -)"},
        {"static { f(); } { g(); }", "(static{} [(exec (call f []))]) ({} [(exec (call g []))])"},
        {"/** @deprecated */ { } int a;", "({} []) (var <> int a -)"},
        {"/** @deprecated */ int a; int b;", "(var <+deprecated> int a -) (var <> int b -)"},
        {"static class D extends C { interface E { } }", "(class <static> D C [] [(class <interface> E - [] [])])"},
        {"class D { void f() { class E { class F { } } } }",
         "(class <> D - [] [(method <> void f [] [] ({} [(class <+local> E - [] [(class <> F - [] [])])]))])"},
        {"Object o = new D() { class E { } };",
         "(var <> Object o (new - D [] (class <+local> - - [] [(class <> E - [] [])])))"},
        {"{ class E { } } class F { }", "({} [(class <+local> E - [] [])]) (class <> F - [] [])"},
    };
    for (const Row& row : rows) EXPECT_EQ(parseMembers(row.source), row.tree) << row.source;
}

TEST(ParserTest, Units) {
    const Row rows[] = {
        {"", ""},
        {"// nothing\n/* at all */", ""},
        {"package a.b; import c.D; import e.*; class F { }",
         "(package (. a b)) (import (. c D)) (import (. e *)) (class <> F - [] [])"},
        {"import a;", "(import a)"},
        {"; class A implements B, c.D { } ;", "(class <> A - [B (. c D)] [])"},
        {"public abstract interface A extends B, C { int a = 1; void f(); }",
         "(class <public interface abstract> A - [B C] [(var <> int a 1) (method <> void f [] [] -)])"},
        {"class A { int a; } class B { }", "(class <> A - [] [(var <> int a -)]) (class <> B - [] [])"},
        {"/** @deprecated */ public class A { int a; }", "(class <public+deprecated> A - [] [(var <> int a -)])"},
        {"public /** @deprecated */ class A { int a; }", "(class <public+deprecated> A - [] [(var <> int a -)])"},
    };
    for (const Row& row : rows) {
        ParsedSource unit(row.source);
        EXPECT_EQ(unit.text(), row.tree) << row.source;
        EXPECT_EQ(unit.log.text(), "") << row.source;
    }
}

// The places show which token each node is pinned to: what messages and line tables go by.

TEST(ParserTest, ExpressionsStandAtTheirOperatorOrName) {
    const Row rows[] = {
        {"aa.bb.cc", "2:7@(. 2:4@(. 2:1@aa bb) cc)"},
        {"a.f(b)[c]", "2:7@(index 2:4@(call 2:3@(. 2:1@a f) [2:5@b]) 2:8@c)"},
        {"a + b * c", "2:7@(+ 2:1@a 2:7@(* 2:5@b 2:9@c))"},
        {"a * b + c", "2:7@(+ 2:3@(* 2:1@a 2:5@b) 2:9@c)"},
        {"a += b", "2:3@(+= 2:1@a 2:6@b)"},
        {"a ? b : c", "2:3@(? 2:1@a 2:5@b 2:9@c)"},
        {"- a++", "2:1@(- 2:4@(post++ 2:3@a))"},
        {"(int) a", "2:1@(cast 2:2@int 2:7@a)"},
        {"a instanceof B", "2:3@(instanceof 2:1@a 2:14@B)"},
        {"a.B.this", "2:5@(this 2:3@(. 2:1@a B))"},
        {"int[].class", "2:7@(. 2:4@(array 2:1@int) class)"},
        {"new A(b)", "2:6@(new - 2:5@A [2:7@b] -)"},
        {"a.new B(c)", "2:7@(new 2:1@a 2:7@B [2:9@c] -)"},
        {"new int[3][]", "2:5@(new[] 2:11@(array 2:5@int) [2:9@3])"},
        {"new int[] {1}", "2:11@(init 2:8@(array 2:5@int) [2:12@1])"},
        {"new A() { }", "2:6@(new - 2:5@A [] 2:9@(class <+local> - - [] []))"},
    };
    for (const Row& row : rows) EXPECT_EQ(parseExpression(row.source, true), row.tree) << row.source;
}

TEST(ParserTest, StatementsAndDeclarationsStandAtTheirKeywordOrName) {
    EXPECT_EQ(parseStatements("if (a) f(); else\n{ }", true),
              "2:1@(if 2:5@a 2:8@({}-2:8 [2:8@(exec 2:9@(call 2:8@f []))]) 3:1@({}-3:1 [3:1@({}-3:3 [])]))");
    EXPECT_EQ(parseStatements("x: for (int i, j[]; ; ) ;", true),
              "2:1@(label x 2:4@(for [2:13@(var <> 2:9@int i -) 2:16@(var <> 2:17@(array 2:9@int) j -)] - [] "
              "2:25@({}-2:25 [])))");
    EXPECT_EQ(parseStatements("switch (a) { case 1: }", true), "2:1@(switch 2:9@a [2:14@(case 2:19@1 [])])");
    EXPECT_EQ(parseStatements("try { } catch (E e) { }", true),
              "2:1@(try 2:5@({}-2:7 []) [2:9@(catch [2:18@(var <> 2:16@E e -)] 2:21@({}-2:23 []))] -)");
    EXPECT_EQ(parseMembers("public int f(int a) { }\nC() { } static class D { }", true),
              "2:12@(method <public> 2:8@int f [2:18@(var <> 2:14@int a -)] [] 2:21@({}-2:23 [])) "
              "3:1@(method <> - <init> [] [] 3:5@({}-3:7 [])) 3:16@(class <static> D - [] [])");
}

} // namespace
} // namespace tarn
