// Run by marionette-quit inside Thunderbird: parses every local mailbox so that
// Thunderbird writes its .msf index, as showing the folder would, then reports
// each folder's message count.
const done = arguments[arguments.length - 1];
const { MailServices } = ChromeUtils.importESModule("resource:///modules/MailServices.sys.mjs");
const folders = MailServices.accounts.localFoldersServer.rootFolder.descendants;
for (const folder of folders) {
  folder.updateFolder(null);
}
setTimeout(() => {
  const counts = [];
  for (const folder of folders) {
    counts.push(`${folder.name} ${folder.getTotalMessages(false)}`);
    folder.msgDatabase?.commit(Ci.nsMsgDBCommitType.kLargeCommit);
  }
  done(counts.join(", "));
}, 3000);
