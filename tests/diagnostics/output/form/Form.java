class Form {
	int tab = "s";
		int two	= 	true;
    int x = y;
    int first = 1 +
}
