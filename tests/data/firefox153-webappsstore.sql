-- webappsstore.sqlite of a profile made by Firefox ESR 153 (local storage keyed by the reversed host).
CREATE TABLE webappsstore2 (originAttributes TEXT, originKey TEXT, scope TEXT, key TEXT, value TEXT);
CREATE UNIQUE INDEX origin_key_index ON webappsstore2(originAttributes, originKey, key);
