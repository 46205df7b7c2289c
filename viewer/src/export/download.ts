// Hands something that was made in the page to the browser as a download.
export function download(content: Blob, fileName: string): void {
    const link = document.createElement("a");
    link.href = URL.createObjectURL(content);
    link.download = fileName;
    document.body.append(link);
    link.click();
    link.remove();
    // The browser still reads it after the click.
    setTimeout(() => URL.revokeObjectURL(link.href), 60_000);
}

// Platform names may hold what file names may not.
export function safeFileName(name: string): string {
    return name.replace(/[\u0000-\u001f"*/:<>?\\|]+/g, "_").slice(0, 100);
}
