public class Main {
static int [ ] shared = {
1 , 2 , 3 , }
;
static final String [ ] [ ] WORDS = {
{
"a" , "b" }
, {
}
, null , {
"c" }
}
;
int [ ] a [ ] = new int [ 2 ] [ ] , b = {
7 }
, c [ ] [ ] = {
{
{
1 }
, {
2 , 3 }
}
, {
}
}
;
static int sum ( int [ ] xs ) {
int s = 0 ;
for ( int i = 0 ;
i < xs . length ;
i ++ ) s += xs [ i ] ;
return s ;
}
static int mixed ( int rows [ ] , int [ ] [ ] columns , int [ ] more [ ] ) [ ] {
return new int [ ] {
rows . length , columns [ 0 ] . length , more . length }
;
}
static int [ ] three ( ) [ ] [ ] {
return new int [ 1 ] [ 2 ] [ ] ;
}
static void defaults ( ) {
byte [ ] b = new byte [ 1 ] ;
short [ ] s = new short [ 1 ] ;
char [ ] c = new char [ 1 ] ;
int [ ] i = new int [ 1 ] ;
long [ ] l = new long [ 1 ] ;
float [ ] f = new float [ 1 ] ;
double [ ] d = new double [ 1 ] ;
boolean [ ] z = new boolean [ 1 ] ;
String [ ] t = new String [ 1 ] ;
int [ ] [ ] n = new int [ 1 ] [ ] ;
System . out . println ( b [ 0 ] + " " + s [ 0 ] + " " + ( int ) c [ 0 ] + " " + i [ 0 ] + " " + l [ 0 ] + " " + f [ 0 ] + " " + d [ 0 ] + " " + z [ 0 ] + " " + t [ 0 ] + " " + n [ 0 ] ) ;
b [ 0 ] = ( byte ) 200 ;
s [ 0 ] = ( short ) 40000 ;
c [ 0 ] = 'c' ;
i [ 0 ] = 1 << 31 ;
l [ 0 ] = 1L << 63 ;
f [ 0 ] = 1.5f ;
d [ 0 ] = - 2.5 ;
z [ 0 ] = true ;
t [ 0 ] = "t" ;
n [ 0 ] = i ;
System . out . println ( b [ 0 ] + " " + s [ 0 ] + " " + c [ 0 ] + " " + i [ 0 ] + " " + l [ 0 ] + " " + f [ 0 ] + " " + d [ 0 ] + " " + z [ 0 ] + " " + t [ 0 ] + " " + n [ 0 ] [ 0 ] ) ;
l [ 0 ] = b [ 0 ] = 3 ;
d [ 0 ] = f [ 0 ] = l [ 0 ] = c [ 0 ] ;
z [ 0 ] = ! z [ 0 ] == ( t [ 0 ] == null ) ;
System . out . println ( b [ 0 ] + " " + l [ 0 ] + " " + f [ 0 ] + " " + d [ 0 ] + " " + z [ 0 ] ) ;
}
static void shapes ( ) {
int [ ] [ ] full = new int [ 3 ] [ 4 ] ;
int [ ] [ ] [ ] partial = new int [ 2 ] [ 3 ] [ ] ;
long [ ] [ ] [ ] [ ] deep = new long [ 2 ] [ 1 ] [ 2 ] [ 2 ] ;
Object [ ] [ ] objects = new Object [ 2 ] [ 2 ] ;
String [ ] [ ] ragged = new String [ 3 ] [ ] ;
for ( int i = 0 ;
i < ragged . length ;
i ++ ) {
ragged [ i ] = new String [ i ] ;
for ( int j = 0 ;
j < ragged [ i ] . length ;
j ++ ) ragged [ i ] [ j ] = i + "" + j ;
}
full [ 1 ] [ 2 ] = 5 ;
full [ 2 ] = new int [ ] {
1 , 2 }
;
deep [ 1 ] [ 0 ] [ 1 ] [ 1 ] = Long . MAX_VALUE ;
deep [ 1 ] [ 0 ] [ 1 ] [ 0 ] ++ ;
System . out . println ( full . length + " " + full [ 0 ] . length + " " + full [ 2 ] . length + " " + sum ( full [ 1 ] ) + " " + partial [ 1 ] . length + " " + partial [ 1 ] [ 2 ] + " " + deep [ 1 ] [ 0 ] [ 1 ] [ 1 ] + deep [ 1 ] [ 0 ] [ 1 ] [ 0 ] + deep [ 0 ] [ 0 ] [ 0 ] [ 0 ] + " " + objects [ 1 ] [ 1 ] + " " + ragged [ 2 ] [ 1 ] + ragged [ 0 ] . length ) ;
System . out . println ( new int [ 0 ] . length + " " + new int [ 0 ] [ 5 ] . length + " " + new int [ 2 ] [ 0 ] [ 7 ] [ ] . length + " " + new char [ ] {
}
. length + new int [ ] [ ] {
}
. length ) ;
System . out . println ( new int [ ] {
4 , 5 , 6 }
[ 1 ] + " " + new int [ ] [ ] {
{
1 }
, {
2 , 3 }
}
[ 1 ] [ 1 ] + " " + new String [ ] {
"x" , "y" }
. length + " " + "a,b" . toCharArray ( ) [ 1 ] + " " + WORDS [ 0 ] [ 1 ] + WORDS [ 1 ] . length + WORDS [ 2 ] + WORDS [ 3 ] [ 0 ] ) ;
Main m = new Main ( ) ;
System . out . println ( m . a . length + " " + m . a [ 0 ] + " " + m . b [ 0 ] + " " + m . c [ 0 ] [ 1 ] [ 1 ] + m . c [ 1 ] . length + " " + mixed ( shared , full , m . a ) [ 1 ] + " " + three ( ) [ 0 ] . length ) ;
char [ ] [ ] chars = {
"ab" . toCharArray ( ) , {
'x' , 'y' , ( char ) 90 }
, new char [ 2 ] }
;
System . out . println ( new String ( chars [ 0 ] ) + new String ( chars [ 1 ] ) + chars [ 2 ] . length ) ;
Object [ ] nested = {
new int [ ] {
1 }
, new Object [ ] {
"in" , new Object [ ] {
null }
}
, "s" }
;
System . out . println ( ( ( int [ ] ) nested [ 0 ] ) [ 0 ] + ( String ) ( ( Object [ ] ) nested [ 1 ] ) [ 0 ] + ( ( Object [ ] ) ( ( Object [ ] ) nested [ 1 ] ) [ 1 ] ) [ 0 ] + nested [ 2 ] ) ;
int x [ ] = {
1 }
, y = 2 , z [ ] [ ] = {
x , {
y }
}
;
z [ 1 ] [ 0 ] += x [ 0 ] = 10 ;
System . out . println ( z [ 0 ] [ 0 ] + " " + z [ 1 ] [ 0 ] + " " + y ) ;
float [ ] floats = {
1 , 'a' , 2L , ( byte ) 3 , 1.5f }
;
double [ ] doubles = {
1 , 1f , floats [ 4 ] }
;
short [ ] shorts = {
'a' , ( byte ) - 1 , 7 }
;
System . out . println ( floats [ 1 ] + floats [ 2 ] + " " + doubles [ 2 ] + " " + ( shorts [ 0 ] + shorts [ 1 ] ) ) ;
byte index = 1 ;
System . out . println ( shared [ index ] + shared [ '\2' ] + shared [ ( short ) 0 ] + shared [ index - 1 ] ) ;
}
static void covariance ( ) {
Object [ ] objects = new String [ 2 ] ;
objects [ 0 ] = "fine" ;
Object o = objects ;
String failed = "" ;
try {
objects [ 1 ] = new Integer ( 1 ) ;
}
catch ( ArrayStoreException e ) {
failed += "store " + objects [ 1 ] + ";" ;
}
try {
( ( Object [ ] ) o ) [ 1 ] = o ;
}
catch ( ArrayStoreException e ) {
failed += "store itself;" ;
}
Object [ ] grid = new int [ 2 ] [ 2 ] ;
grid [ 0 ] = new int [ ] {
9 }
;
try {
grid [ 1 ] = new long [ 1 ] ;
}
catch ( ArrayStoreException e ) {
failed += "rows;" ;
}
try {
int x = shared [ 3 ] ;
}
catch ( ArrayIndexOutOfBoundsException e ) {
failed += "bounds;" ;
}
try {
shared [ - 1 ] ++ ;
}
catch ( ArrayIndexOutOfBoundsException e ) {
failed += "negative index;" ;
}
int n = - 2 ;
try {
int [ ] [ ] bad = new int [ 3 ] [ n ] ;
}
catch ( NegativeArraySizeException e ) {
failed += "size " + e . getMessage ( ) + ";" ;
}
try {
int [ ] none = null ;
n = none . length ;
}
catch ( NullPointerException e ) {
failed += "null;" ;
}
try {
n = WORDS [ 2 ] [ 0 ] . length ( ) ;
}
catch ( NullPointerException e ) {
failed += "null row;" ;
}
System . out . println ( failed + ( ( int [ ] ) grid [ 0 ] ) [ 0 ] + ( o instanceof String [ ] ) + ( grid instanceof int [ ] [ ] ) + ( o instanceof Object [ ] ) ) ;
}
static void copies ( ) {
int [ ] copy = ( int [ ] ) shared . clone ( ) ;
copy [ 0 ] = 50 ;
int [ ] [ ] rows = {
interface I { } {
1 }
, {
2 }
}
;
int [ ] [ ] shallow = ( int [ ] [ ] ) rows . clone ( ) ;
shallow [ 0 ] [ 0 ] = 7 ;
shallow [ 1 ] = copy ;
System . out . println ( sum ( shared ) + " " + sum ( copy ) + " " + rows [ 0 ] [ 0 ] + rows [ 1 ] [ 0 ] + " " + ( copy . equals ( shared ) ) + ( copy . clone ( ) == copy ) + " " + ( shared . getClass ( ) == copy . getClass ( ) ) ) ;
System . arraycopy ( shared , 0 , copy , 1 , 2 ) ;
System . out . println ( copy [ 0 ] + " " + copy [ 1 ] + " " + copy [ 2 ] + " " + shared . getClass ( ) . getName ( ) + " " + WORDS . getClass ( ) . getName ( ) ) ;
}
static int [ ] sieve ( int n ) {
int [ ] primes = new int [ n ] ;
int count = 0 ;
next : for ( int i = 2 ;
count < n ;
i ++ ) {
for ( int k = 0 ;
k < count && primes [ k ] * primes [ k ] <= i ;
k ++ ) if ( i % primes [ k ] == 0 ) continue next ;
primes [ count ++ ] = i ;
}
return primes ;
}
static String pascal ( int rows ) {
StringBuffer s = new StringBuffer ( ) ;
long [ ] [ ] t = new long [ rows ] [ ] ;
for ( int i = 0 ;
i < rows ;
i ++ ) {
t [ i ] = new long [ i + 1 ] ;
t [ i ] [ 0 ] = t [ i ] [ i ] = 1 ;
for ( int j = 1 ;
j < i ;
j ++ ) t [ i ] [ j ] = t [ i - 1 ] [ j - 1 ] + t [ i - 1 ] [ j ] ;
}
for ( int j = 0 ;
j < rows ;
j ++ ) s . append ( t [ rows - 1 ] [ j ] ) . append ( ' ' ) ;
return s . toString ( ) ;
}
static void rotate ( Object [ ] a , int k ) {
while ( k -- > 0 ) {
Object first = a [ 0 ] ;
for ( int i = 1 ;
i < a . length ;
i ++ ) a [ i - 1 ] = a [ i ] ;
a [ a . length - 1 ] = first ;
}
}
static void reverse ( char [ ] a ) {
for ( int i = 0 , j = a . length - 1 ;
i < j ;
) {
char t = a [ i ] ;
a [ i ++ ] = a [ j ] ;
a [ j -- ] = t ;
}
}
public static void main ( String [ ] args ) {
System . out . println ( args . length ) ;
defaults ( ) ;
shapes ( ) ;
covariance ( ) ;
copies ( ) ;
int [ ] primes = sieve ( 12 ) ;
System . out . println ( primes [ 11 ] + " " + sum ( primes ) + " " + pascal ( 12 ) ) ;
String [ ] names = {
"x" , "y" , "z" }
;
rotate ( names , 4 ) ;
char [ ] word = "stressed" . toCharArray ( ) ;
reverse ( word ) ;
System . out . println ( names [ 0 ] + names [ 1 ] + names [ 2 ] + " " + new String ( word ) ) ;
}
}
