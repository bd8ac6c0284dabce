-- An empty Firefox 3.5 webappsstore.sqlite (DOM storage keyed by the reversed host's scope).
CREATE TABLE webappsstore2 (scope TEXT, key TEXT, value TEXT, secure INTEGER, owner TEXT);
CREATE UNIQUE INDEX scope_key_index ON webappsstore2(scope, key);
