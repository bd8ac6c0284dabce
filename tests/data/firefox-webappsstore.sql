-- An empty Firefox 3.0 webappsstore.sqlite (DOM storage keyed by domain).
CREATE TABLE webappsstore (domain TEXT, key TEXT, value TEXT, secure INTEGER, owner TEXT);
