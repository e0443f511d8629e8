class XUser extends YUser.In {
    Own own = new Own();
}
