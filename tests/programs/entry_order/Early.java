class Early {
    LateUser.Kept kept = new LateUser.Kept();
}
