package near;

/** Not imported by anyone's on-demand import. */
class Tool {
}
