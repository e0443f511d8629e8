class Cycles extends Other {
// error 362 (1:1): cyclic inheritance involving class Cycles
}

class Other extends Cycles {
}

interface ItsOwn extends ItsOwn {
// error 362 (8:1): cyclic inheritance involving interface ItsOwn
}

class Around extends Around.Within {
// error 362 (12:1): cyclic inheritance involving class Around
    class Within { }
}

class ByItsMember implements ByItsMember.Member {
// error 362 (17:1): cyclic inheritance involving class ByItsMember
    interface Member extends ByItsMember { }
    //                       ^ error 453: not an interface
}
