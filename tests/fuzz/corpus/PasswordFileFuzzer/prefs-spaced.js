user_pref( "signon.SignonFileName" ,   "key3 copy.db" );
