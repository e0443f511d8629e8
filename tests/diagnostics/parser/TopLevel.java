int x;
// error 202 (1:1): 'class' or 'interface' expected
class TopLevel {
}
}
// error 202 (5:1): 'class' or 'interface' expected
;
interface OnlyAConstant {
    int noValue;
    //         ^ error 214: missing initializer
}
