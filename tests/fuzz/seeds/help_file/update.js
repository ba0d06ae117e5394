{"version":"1.2.3"}
