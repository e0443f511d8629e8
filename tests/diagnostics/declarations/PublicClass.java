public class OtherName {
//     ^ warning 475: class OtherName is public; should be declared in a file named OtherName.java
}

public class PUBLICCLASS {
}
