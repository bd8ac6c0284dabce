CREATE TABLE meta(key LONGVARCHAR NOT NULL UNIQUE PRIMARY KEY, value LONGVARCHAR);
CREATE TABLE buckets(id INTEGER PRIMARY KEY AUTOINCREMENT, storage_key TEXT NOT NULL, host TEXT NOT NULL, name TEXT NOT NULL, use_count INTEGER NOT NULL, last_accessed INTEGER NOT NULL, last_modified INTEGER NOT NULL, expiration INTEGER NOT NULL, quota INTEGER NOT NULL, persistent INTEGER NOT NULL, durability INTEGER NOT NULL) STRICT;
CREATE UNIQUE INDEX buckets_by_storage_key ON buckets(storage_key, name);
CREATE INDEX buckets_by_host ON buckets(host);
CREATE INDEX buckets_by_last_accessed ON buckets(last_accessed);
CREATE INDEX buckets_by_last_modified ON buckets(last_modified);
CREATE INDEX buckets_by_expiration ON buckets(expiration);
