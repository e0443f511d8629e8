class Fine { }
