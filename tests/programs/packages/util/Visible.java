package util;

/** Public members of a class that is not visible itself can be used through a visible subclass. */
public class Visible extends Invisible {
}
